#include "ui/list_view.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/error.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

namespace {

Error NoSuch(const char* what, const std::string& number) {
  return {ErrorNumber::InvalidArgument, "The list has no " + std::string(what) + " " + number + "."};
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

std::size_t ListView::RowAt(std::size_t position) const {
  if (position < RowCount()) return order_.empty() ? position : order_[position];
  throw NoSuch("row", std::to_string(position));
}

std::string ListView::Text(std::size_t position, std::size_t column) const {
  if (position >= RowCount() || column >= columns_.size()) return {};
  return rows_->Text(RowAt(position), column);
}

bool ListView::Checked(std::size_t position) const {
  return position < RowCount() && rows_->Checked(RowAt(position));
}

void ListView::SortBy(int column, SortDirection direction) {
  if (column != kUnsorted && !IsColumn(column)) throw NoSuch("column", std::to_string(column));
  sortColumn_ = column;
  direction_ = direction;
  Sort();
  RowsChanged.Raise();
}

void ListView::SetSortImages(ui::SortImages images) {
  sortImages_ = std::move(images);
  RaiseAppearanceChanged();
}

std::shared_ptr<const Image> ListView::SortImage() const {
  if (sortColumn_ == kUnsorted) return nullptr;
  return direction_ == SortDirection::Ascending ? sortImages_.ascending : sortImages_.descending;
}

void ListView::SetMultiSelect(bool multiSelect) {
  if (multiSelect_ == multiSelect) return;
  multiSelect_ = multiSelect;
  RaiseAppearanceChanged();
  SetSelectedRows(selected_);
}

void ListView::SetCheckboxes(bool checkboxes) {
  if (checkboxes_ == checkboxes) return;
  checkboxes_ = checkboxes;
  RaiseAppearanceChanged();
}

void ListView::SetMenuItems(std::vector<std::string> items) {
  if (menuItems_ == items) return;
  menuItems_ = std::move(items);
  RaiseAppearanceChanged();
}

void ListView::Sort() {
  order_.clear();
  if (sortColumn_ == kUnsorted || !rows_) return;
  const auto column = static_cast<std::size_t>(sortColumn_);
  order_.resize(rows_->Count());
  std::iota(order_.begin(), order_.end(), 0U);
  if (columns_[column].content == ListColumn::Content::Number) {
    SortRows(order_, direction_, [&](std::size_t row) { return rows_->Number(row, column); });
  } else {
    SortRows(order_, direction_, [&](std::size_t row) { return rows_->Text(row, column); });
  }
}

void ListView::SetSelectedRows(std::vector<std::size_t> rows) {
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  if (!rows.empty() && rows.back() >= RowCount()) throw NoSuch("row", std::to_string(rows.back()));
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
  if (!Usable() || !IsColumn(column)) return;
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
