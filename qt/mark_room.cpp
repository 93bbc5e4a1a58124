#include "qt/mark_room.h"

#include <QIcon>
#include <QLabel>
#include <QStyle>

namespace kiv::qt {

namespace {

int IconSize(const QWidget& widget) {
  return widget.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &widget);
}

}  // namespace

MarkRoom::MarkRoom(QWidget* parent)
    : QSpacerItem(IconSize(*parent) * 3 / 2, 0, QSizePolicy::Fixed, QSizePolicy::Minimum), parent_(parent) {}

void MarkRoom::Show(const QString& message) {
  if (message.isEmpty()) {
    if (icon_) icon_->hide();
    return;
  }
  if (!icon_) {
    const int size = IconSize(*parent_);
    const QIcon warning = parent_->style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, parent_);
    icon_ = new QLabel(parent_);
    icon_->setPixmap(warning.pixmap(QSize(size, size), parent_->devicePixelRatioF()));
    icon_->setAlignment(Qt::AlignCenter);
    icon_->setGeometry(geometry());
  }
  icon_->setToolTip(message);
  icon_->setAccessibleName(message);
  icon_->show();
}

void MarkRoom::setGeometry(const QRect& rectangle) {
  QSpacerItem::setGeometry(rectangle);
  if (icon_) icon_->setGeometry(rectangle);
}

}  // namespace kiv::qt
