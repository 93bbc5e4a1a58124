#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ui/control.h"

namespace kiv::ui {

/// One entry of a list: its text and the number behind it.
struct ListItem {
  std::string text;
  std::int32_t data = 0;
};

using ItemList = std::vector<ListItem>;

/// Index of a list in which nothing is selected.
inline constexpr int kNoSelection = -1;

/// A drop-down list from which one entry, or none, is selected.
class ComboBox : public Control {
 public:
  using Control::Control;

  const ItemList& Items() const { return items_; }
  /// Replaces the entries and selects one of them, or none. Raises error 5 for another index, and keeps the
  /// entries then.
  void SetItems(ItemList items, int index = kNoSelection);

  int ListIndex() const { return index_; }
  /// Raises error 5 for an index that is neither an entry's nor kNoSelection.
  void SetListIndex(int index);

  /// What a view shows while nothing is selected.
  const std::string& Hint() const { return hint_; }
  void SetHint(std::string hint);

  /// The user picks an entry; ignored while the list is not usable.
  void Select(int index);

  void Accept(ControlVisitor& visitor) override;

  /// Raised when another entry is selected; entries are told apart by the number behind them.
  Signal<> Changed;
  /// Raised when the user picks the entry that is selected already.
  Signal<> PickedAgain;
  /// Raised when the entries were replaced.
  Signal<> ItemsChanged;

 private:
  std::optional<std::int32_t> SelectedData() const;
  void RequireIndex(const ItemList& items, int index) const;

  ItemList items_;
  int index_ = kNoSelection;
  std::string hint_;
};

}  // namespace kiv::ui
