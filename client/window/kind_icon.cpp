#include "client/window/kind_icon.h"

#include <QColor>
#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <iterator>

#include "editor/study_editors.h"

namespace kiv::client {

namespace {

/// Kinds are told apart by their place among the kinds that there are.
QColor KindColor(std::string_view kind) {
  constexpr QRgb kColors[] = {0xff1f6fb5, 0xff2e7d32, 0xffb25a00, 0xff7b3f98, 0xff00707a, 0xffa02040};
  constexpr QRgb kUnknown = 0xff606060;
  const auto& editors = StudyEditors();
  const auto found = std::ranges::find(editors, kind, &StudyEditor::name);
  if (found == editors.end()) return kUnknown;
  return kColors[static_cast<std::size_t>(found - editors.begin()) % std::size(kColors)];
}

QIcon DrawIcon(std::string_view kind) {
  constexpr int kSize = 64;  // drawn large, so that it stays sharp on dense screens
  QPixmap badge(kSize, kSize);
  badge.fill(Qt::transparent);
  QPainter painter(&badge);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(KindColor(kind));
  painter.drawRoundedRect(badge.rect().adjusted(2, 2, -2, -2), 14, 14);
  QFont font = painter.font();
  font.setPixelSize(40);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(badge.rect(), Qt::AlignCenter, QString::fromUtf8(kind.data(), 1));
  return QIcon(badge);
}

}  // namespace

QIcon KindIcon(std::string_view kind) {
  static QHash<QByteArray, QIcon> drawn;
  const QByteArray key(kind.data(), static_cast<qsizetype>(kind.size()));
  if (!drawn.contains(key)) drawn.insert(key, DrawIcon(kind));
  return drawn.value(key);
}

}  // namespace kiv::client
