#include "client/window/kind_icon.h"

#include <QColor>
#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <string>

#include "core/study_kinds.h"

namespace kiv::client {

namespace {

/// A kind that this program does not know has a grey badge with its first letter.
KindBadge BadgeOf(const std::string& kind) {
  constexpr std::uint32_t kGrey = 0x606060;
  const StudyKind* known = FindStudyKind(kind);
  return known ? known->badge : KindBadge{kind.substr(0, 1), kGrey};
}

QIcon DrawIcon(const KindBadge& badge) {
  constexpr int kSize = 64;  // drawn large, so that it stays sharp on dense screens
  QPixmap picture(kSize, kSize);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(badge.color));
  painter.drawRoundedRect(picture.rect().adjusted(2, 2, -2, -2), 14, 14);
  QFont font = painter.font();
  font.setPixelSize(40);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(picture.rect(), Qt::AlignCenter, QString::fromStdString(badge.letters));
  return QIcon(picture);
}

}  // namespace

QIcon KindIcon(std::string_view kind) {
  static QHash<QByteArray, QIcon> drawn;
  const QByteArray key(kind.data(), static_cast<qsizetype>(kind.size()));
  if (!drawn.contains(key)) drawn.insert(key, DrawIcon(BadgeOf(std::string(kind))));
  return drawn.value(key);
}

}  // namespace kiv::client
