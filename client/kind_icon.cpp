#include "client/kind_icon.h"

#include <QColor>
#include <QHash>
#include <QPainter>
#include <QPixmap>

#include "core/study_kinds.h"

namespace kiv::client {

namespace {

QColor KindColor(std::string_view kind) {
  if (kind == kHomStudy) return QColor(0x1f, 0x6f, 0xb5);
  if (kind == kPlmStudy) return QColor(0x2e, 0x7d, 0x32);
  if (kind == kRfcStudy) return QColor(0xb2, 0x5a, 0x00);
  if (kind == kVcsStudy) return QColor(0x7b, 0x3f, 0x98);
  return QColor(0x60, 0x60, 0x60);
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
