#include "client/window/cut_text_tips.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace kiv::client {

bool CutTextTips::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const bool cut = sizeHint(option, index).width() > view->visualRect(index).width();
  // A tool tip would take some names for markup.
  QToolTip::showText(event->globalPos(), cut ? Qt::convertFromPlainText(index.data().toString()) : QString(),
                     view);
  return true;
}

}  // namespace kiv::client
