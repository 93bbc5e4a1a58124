#pragma once

#include <QStyledItemDelegate>

namespace kiv::client {

/// Shows the whole text of a cell as a tool tip where its column cuts it.
class CutTextTips : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace kiv::client
