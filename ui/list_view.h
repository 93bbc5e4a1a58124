#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/image.h"
#include "ui/control.h"
#include "ui/row_order.h"

namespace kiv::ui {

enum class Alignment { Left, Right };

struct ListColumn {
  std::string caption;
  int width = 10;  ///< characters
  Alignment alignment = Alignment::Left;
  /// Numbers are sorted by value, texts by their characters.
  enum class Content { Text, Number } content = Content::Text;
};

/// Where a list view reads its rows when it shows or sorts them. The list keeps no copy.
class ListRows {
 public:
  virtual ~ListRows() = default;

  virtual std::size_t Count() const = 0;
  virtual std::string Text(std::size_t row, std::size_t column) const = 0;
  /// Value in a column of numbers.
  virtual std::int64_t Number(std::size_t row, std::size_t column) const = 0;
  virtual bool Checked(std::size_t row) const = 0;
};

/// What is being dragged over a list: the numbers of the formats that it is offered in.
struct DragData {
  std::vector<std::uint16_t> formats;
};

struct SortImages {
  std::shared_ptr<const Image> ascending;
  std::shared_ptr<const Image> descending;
};

/// Rows with column headers. Its flags and menu belong to its appearance. A row has its number in the source
/// and its position on the screen, which differ once the list is sorted.
class ListView : public Control {
 public:
  using Control::Control;

  const std::vector<ListColumn>& Columns() const { return columns_; }
  void SetColumns(std::vector<ListColumn> columns);

  /// Shows other rows, or the same ones after they changed; nothing is selected afterwards.
  void SetRows(std::shared_ptr<const ListRows> rows);
  std::size_t RowCount() const { return rows_ ? rows_->Count() : 0; }
  /// Number of the row at a position. Raises error 5 where no row is.
  std::size_t RowAt(std::size_t position) const;
  /// What the list shows; nothing, and unchecked, where no row or column is.
  std::string Text(std::size_t position, std::size_t column) const;
  bool Checked(std::size_t position) const;

  /// The column that names a row, and has its check box.
  static constexpr int kDefaultColumn = 0;
  /// kUnsorted: the rows stand in the order of their source.
  static constexpr int kUnsorted = -1;
  int SortColumn() const { return sortColumn_; }
  SortDirection Direction() const { return direction_; }
  /// Raises error 5 for what is neither a column nor kUnsorted.
  void SortBy(int column, SortDirection direction);
  /// The host's arrows for the header of the sorted column; a view draws its own in place of one that is
  /// unset.
  const ui::SortImages& SortImages() const { return sortImages_; }
  void SetSortImages(ui::SortImages images);
  /// The one that belongs to the way in which the list is sorted; null while it is unsorted.
  std::shared_ptr<const Image> SortImage() const;

  bool MultiSelect() const { return multiSelect_; }
  /// Without it only the first of several selected rows stays selected.
  void SetMultiSelect(bool multiSelect);
  bool Checkboxes() const { return checkboxes_; }
  void SetCheckboxes(bool checkboxes);
  /// Entries of the menu that a right click opens; none opens while there are none.
  const std::vector<std::string>& MenuItems() const { return menuItems_; }
  void SetMenuItems(std::vector<std::string> items);

  /// Numbers of the selected rows, ascending.
  const std::vector<std::size_t>& SelectedRows() const { return selected_; }
  /// Raises error 5 for a row that is not there.
  void SetSelectedRows(std::vector<std::size_t> rows);

  /// What a user does. A list that is not usable ignores it.
  void SelectPositions(const std::vector<std::size_t>& positions);
  /// Sorts by the column: ascending first, the other way round at a second click.
  void ClickHeader(int column);
  void ClickCheckBox(std::size_t position);
  void ChooseMenuItem(std::size_t item);
  void PressDelete();
  /// Whether a drop of this would be taken.
  bool OffersDrop(const DragData& data) const { return Usable() && acceptsDrop_ && acceptsDrop_(data); }
  void Drop(const DragData& data);

  void Accept(ControlVisitor& visitor) override;

  Signal<> ColumnsChanged;
  Signal<> RowsChanged;  ///< other rows, or another order
  Signal<> SelectionChanged;
  Signal<std::size_t> CheckBoxClicked;  ///< number of the row
  Signal<std::size_t> MenuItemChosen;
  Signal<> DeletePressed;
  Signal<const DragData&> Dropped;

 protected:
  /// Without a rule no drop is taken.
  void SetDropRule(std::function<bool(const DragData&)> accepts) { acceptsDrop_ = std::move(accepts); }

 private:
  void Sort();
  bool IsColumn(int column) const { return column >= 0 && column < static_cast<int>(columns_.size()); }

  std::vector<ListColumn> columns_;
  std::shared_ptr<const ListRows> rows_;
  std::vector<std::uint32_t> order_;  // row numbers by position; empty while unsorted
  int sortColumn_ = kUnsorted;
  SortDirection direction_ = SortDirection::Ascending;
  ui::SortImages sortImages_;
  bool multiSelect_ = false;
  bool checkboxes_ = false;
  std::vector<std::string> menuItems_;
  std::vector<std::size_t> selected_;
  std::function<bool(const DragData&)> acceptsDrop_;
};

}  // namespace kiv::ui
