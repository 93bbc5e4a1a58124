#include "ui/list_view.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "ui/control_visitor.h"

namespace kiv::ui {

namespace {

/// Row numbers by ascending key; rows with the same key keep their order.
template <class Key, class KeyOf>
std::vector<std::uint32_t> RowsByKey(std::size_t count, SortDirection direction, const KeyOf& keyOf) {
  std::vector<std::pair<Key, std::uint32_t>> keys;
  keys.reserve(count);
  for (std::size_t row = 0; row < count; ++row)
    keys.emplace_back(keyOf(row), static_cast<std::uint32_t>(row));
  if (direction == SortDirection::Ascending) {
    std::sort(keys.begin(), keys.end());
  } else {
    std::sort(keys.begin(), keys.end(), [](const auto& left, const auto& right) {
      return left.first != right.first ? left.first > right.first : left.second < right.second;
    });
  }
  std::vector<std::uint32_t> rows(count);
  std::transform(keys.begin(), keys.end(), rows.begin(), [](const auto& key) { return key.second; });
  return rows;
}

}  // namespace

void ListView::SetColumns(std::vector<ListColumn> columns) {
  columns_ = std::move(columns);
  if (sortColumn_ >= static_cast<int>(columns_.size())) sortColumn_ = kUnsorted;
  Sort();
  ColumnsChanged.Raise();
}

void ListView::SetRows(std::shared_ptr<const ListRows> rows) {
  rows_ = std::move(rows);
  selected_.clear();
  Sort();
  RowsChanged.Raise();
  SelectionChanged.Raise();
}

std::string ListView::Text(std::size_t position, std::size_t column) const {
  return rows_->Text(RowAt(position), column);
}

bool ListView::Checked(std::size_t position) const {
  return rows_->Checked(RowAt(position));
}

void ListView::SortBy(int column, SortDirection direction) {
  sortColumn_ = column;
  direction_ = direction;
  Sort();
  RowsChanged.Raise();
}

void ListView::Sort() {
  order_.clear();
  if (sortColumn_ == kUnsorted || !rows_) return;
  const auto column = static_cast<std::size_t>(sortColumn_);
  if (columns_[column].content == ListColumn::Content::Number) {
    order_ = RowsByKey<std::int64_t>(rows_->Count(), direction_,
                                     [&](std::size_t row) { return rows_->Number(row, column); });
  } else {
    order_ = RowsByKey<std::string>(rows_->Count(), direction_,
                                    [&](std::size_t row) { return rows_->Text(row, column); });
  }
}

void ListView::SetSelectedRows(std::vector<std::size_t> rows) {
  std::sort(rows.begin(), rows.end());
  if (!multiSelect_ && rows.size() > 1) rows.erase(rows.begin() + 1, rows.end());
  if (rows == selected_) return;
  selected_ = std::move(rows);
  SelectionChanged.Raise();
}

void ListView::SelectPositions(const std::vector<std::size_t>& positions) {
  if (!Usable()) return;
  std::vector<std::size_t> rows;
  rows.reserve(positions.size());
  for (const std::size_t position : positions) {
    if (position < RowCount()) rows.push_back(RowAt(position));
  }
  SetSelectedRows(std::move(rows));
}

void ListView::ClickHeader(int column) {
  if (!Usable() || column < 0 || column >= static_cast<int>(columns_.size())) return;
  const bool again = column == sortColumn_ && direction_ == SortDirection::Ascending;
  SortBy(column, again ? SortDirection::Descending : SortDirection::Ascending);
}

void ListView::ClickCheckBox(std::size_t position) {
  if (Usable() && checkboxes_ && position < RowCount()) CheckBoxClicked.Raise(RowAt(position));
}

void ListView::ChooseMenuItem(std::size_t item) {
  if (Usable() && item < menuItems_.size()) MenuItemChosen.Raise(item);
}

void ListView::PressDelete() {
  if (Usable()) DeletePressed.Raise();
}

void ListView::Drop(const DragData& data) {
  if (OffersDrop(data)) Dropped.Raise(data);
}

void ListView::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
