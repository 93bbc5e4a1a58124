#include "ui/combo_box.h"

#include <utility>

#include "base/error.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

void ComboBox::SetItems(ItemList items, int index) {
  RequireIndex(items, index);
  const auto before = SelectedData();
  items_ = std::move(items);
  index_ = index;
  ItemsChanged.Raise();
  if (SelectedData() != before) Changed.Raise();
}

void ComboBox::SetListIndex(int index) {
  RequireIndex(items_, index);
  if (index_ == index) return;
  index_ = index;
  Changed.Raise();
}

void ComboBox::SetHint(std::string hint) {
  if (hint_ == hint) return;
  hint_ = std::move(hint);
  RaiseAppearanceChanged();
}

std::optional<std::int32_t> ComboBox::SelectedData() const {
  if (index_ == kNoSelection) return std::nullopt;
  return items_[static_cast<std::size_t>(index_)].data;
}

void ComboBox::RequireIndex(const ItemList& items, int index) const {
  if (index >= kNoSelection && index < static_cast<int>(items.size())) return;
  throw Error(ErrorNumber::InvalidArgument, Name() + " has no entry " + std::to_string(index) + ".");
}

void ComboBox::Select(int index) {
  if (!Usable()) return;
  if (index == index_ && index != kNoSelection) return PickedAgain.Raise();
  SetListIndex(index);
}

void ComboBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
