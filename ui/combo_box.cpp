#include "ui/combo_box.h"

#include <utility>

#include "base/error.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

void ComboBox::SetItems(ItemList items) {
  items_ = std::move(items);
  const bool hadSelection = index_ != kNoSelection;
  index_ = kNoSelection;
  ItemsChanged.Raise();
  if (hadSelection) Changed.Raise();
}

void ComboBox::SetListIndex(int index) {
  if (index < kNoSelection || index >= static_cast<int>(items_.size())) {
    throw Error(ErrorNumber::InvalidArgument, Name() + " has no entry " + std::to_string(index) + ".");
  }
  if (index_ == index) return;
  index_ = index;
  Changed.Raise();
}

void ComboBox::Select(int index) {
  if (Usable()) SetListIndex(index);
}

void ComboBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
