#include "ui/page_plan.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "ui/caption.h"
#include "ui/caret_text.h"
#include "ui/control_traits.h"
#include "ui/text_box.h"

namespace kiv::ui {

namespace {

using LayoutKind = LayoutItem::Kind;

/// The columns of a form.
constexpr int kLabelColumn = 0;
constexpr int kFieldColumn = 1;
constexpr int kFormColumns = 2;

bool IsTextBox(const LayoutItem& item) {
  return item.kind == LayoutKind::Single && dynamic_cast<const TextBox*>(item.control);
}

bool IsLabel(const Control* control) {
  return dynamic_cast<const Label*>(control) != nullptr;
}

bool IsText(const LayoutItem& item) {
  return item.kind == LayoutKind::Text || (item.kind == LayoutKind::Single && IsLabel(item.control));
}

/// A number is followed by its unit, or by a word between it and the number behind.
BoxWidth WidthOf(const std::vector<LayoutItem>& row, std::size_t i) {
  const bool isFirst = i + 1 < row.size() && row[i + 1].kind == LayoutKind::Text;
  const bool isSecond = i >= 2 && row[i - 1].kind == LayoutKind::Text && IsTextBox(row[i - 2]);
  return isFirst || isSecond ? BoxWidth::Short : BoxWidth::Full;
}

/// Whether the item is a text that belongs to what stands before it, and not between two numbers.
bool IsUnit(const std::vector<LayoutItem>& row, std::size_t i) {
  return IsText(row[i]) && !(i + 1 < row.size() && IsTextBox(row[i + 1]));
}

std::string Joined(const std::string& first, const std::string& second) {
  return first.empty() || second.empty() ? first + second : first + ' ' + second;
}

PlanItem Part(PlanItem::Kind kind, Control* control = nullptr) {
  PlanItem part;
  part.kind = kind;
  part.control = control;
  return part;
}

PlanItem StretchAcross() {
  PlanItem stretch = Part(PlanItem::Kind::Stretch);
  stretch.growsAcross = true;
  return stretch;
}

PlanItem StretchDown() {
  PlanItem stretch = Part(PlanItem::Kind::Stretch);
  stretch.growsDown = true;
  return stretch;
}

void Add(PlanItem& whole, PlanItem part) {
  whole.growsAcross = whole.growsAcross || part.growsAcross;
  whole.growsDown = whole.growsDown || part.growsDown;
  whole.items.push_back(std::move(part));
}

}  // namespace

/// Fills a plan. Its functions follow the kinds of the layout tree.
class PagePlanner {
 public:
  explicit PagePlanner(PagePlan& plan) : plan_(plan) {}

  void Plan(const LayoutItem& page) {
    PlanItem& root = plan_.root_;
    if (page.kind == LayoutKind::Column) {
      for (const LayoutItem& item : page.items) AddToColumn(root, item);
    } else {
      AddToColumn(root, page);
    }
    // Without anything that grows, the room below belongs to nobody.
    if (!root.growsDown) Add(root, StretchDown());
  }

 private:
  using Naming = PagePlan::Naming;
  struct Filling;

  void AddToColumn(PlanItem& column, const LayoutItem& item);
  PlanItem Area(const LayoutItem& area);
  PlanItem FormOf(const LayoutItem& form);
  PlanItem GridOf(const LayoutItem& grid);
  PlanItem RowOf(const std::vector<LayoutItem>& items, const Naming& naming);
  /// The label in front of a field and what stands behind it.
  std::pair<PlanItem, PlanItem> FieldOf(const LayoutItem& field);
  void AddText(Filling& row, PlanItem text);
  void AddControl(Filling& row, Control& control, BoxWidth width);
  PlanItem ControlPart(Control& control);

  PagePlan& plan_;
};

/// One row while it is filled.
struct PagePlanner::Filling {
  const std::vector<LayoutItem>& items;
  Naming naming;  ///< of the next control without a caption
  PlanItem row = Part(PlanItem::Kind::Row);
  bool isFull = false;             ///< something takes the whole width
  Control* last = nullptr;         ///< the control that a text belongs to
  Control* withoutRoom = nullptr;  ///< its mark stands behind its unit

  void AddMarkRoom() {
    if (withoutRoom) Add(row, Part(PlanItem::Kind::MarkRoom, std::exchange(withoutRoom, nullptr)));
  }
};

void PagePlanner::AddToColumn(PlanItem& column, const LayoutItem& item) {
  switch (item.kind) {
    case LayoutKind::Stretch: return Add(column, StretchDown());
    case LayoutKind::Column:
    case LayoutKind::Group:
    case LayoutKind::Grid:
    case LayoutKind::Form: return Add(column, Area(item));
    case LayoutKind::Row: return Add(column, RowOf(item.items, {}));
    case LayoutKind::Field:
    case LayoutKind::Single:
    case LayoutKind::Text: return Add(column, RowOf({item}, {}));
  }
}

PlanItem PagePlanner::Area(const LayoutItem& area) {
  if (area.kind == LayoutKind::Form) return FormOf(area);
  if (area.kind == LayoutKind::Grid) return GridOf(area);
  PlanItem column = area.control ? ControlPart(*area.control) : PlanItem{};
  column.kind = area.control ? PlanItem::Kind::Group : PlanItem::Kind::Column;
  for (const LayoutItem& item : area.items) AddToColumn(column, item);
  return column;
}

PlanItem PagePlanner::FormOf(const LayoutItem& form) {
  PlanItem grid = Part(PlanItem::Kind::Grid);
  grid.growingColumn = kFieldColumn;
  int line = 0;
  for (const LayoutItem& item : form.items) {
    if (item.kind == LayoutKind::Field) {
      auto [label, row] = FieldOf(item);
      row.line = label.line = line;
      row.column = kFieldColumn;
      label.column = kLabelColumn;
      label.formLabel = true;
      label.alignTop = row.growsDown;
      if (label.kind != PlanItem::Kind::Column) Add(grid, std::move(label));
      Add(grid, std::move(row));
    } else {
      PlanItem across;
      AddToColumn(across, item);
      across.line = line;
      across.columns = kFormColumns;
      Add(grid, std::move(across));
    }
    ++line;
  }
  return grid;
}

PlanItem PagePlanner::GridOf(const LayoutItem& grid) {
  PlanItem cells = Part(PlanItem::Kind::Grid);
  int line = 0;
  for (const LayoutItem& row : grid.items) {
    Control* rowName = nullptr;
    int column = 0;
    for (const LayoutItem& item : row.items) {
      const std::size_t first = plan_.controls_.size();
      PlanItem cell = RowOf({item}, {rowName, nullptr, {}, {}});
      cell.line = line;
      cell.column = column;
      if (column++ == 0 && first < plan_.controls_.size()) rowName = plan_.controls_[first];
      Add(cells, std::move(cell));
    }
    cells.growingColumn = std::max(cells.growingColumn, column - 1);
    ++line;
  }
  return cells;
}

PlanItem PagePlanner::RowOf(const std::vector<LayoutItem>& items, const Naming& naming) {
  Filling filling{items, naming};
  for (std::size_t i = 0; i < items.size(); ++i) {
    const LayoutItem& item = items[i];
    if (!IsUnit(items, i)) filling.AddMarkRoom();
    switch (item.kind) {
      case LayoutKind::Single: AddControl(filling, *item.control, WidthOf(items, i)); break;
      case LayoutKind::Text: {
        PlanItem text = Part(PlanItem::Kind::Text);
        text.text = item.text;
        text.partOf = filling.last;
        AddText(filling, std::move(text));
        filling.naming.textBefore = item.text;
        break;
      }
      case LayoutKind::Stretch:
        Add(filling.row, StretchAcross());
        filling.isFull = true;
        break;
      case LayoutKind::Field: {
        auto [label, row] = FieldOf(item);
        if (label.kind != PlanItem::Kind::Column) Add(filling.row, std::move(label));
        Add(filling.row, std::move(row));
        filling.isFull = true;
        break;
      }
      case LayoutKind::Row:
        Add(filling.row, RowOf(item.items, {}));
        filling.isFull = true;
        break;
      case LayoutKind::Column:
      case LayoutKind::Group:
      case LayoutKind::Grid:
      case LayoutKind::Form:
        Add(filling.row, Area(item));
        filling.isFull = true;
        break;
    }
  }
  filling.AddMarkRoom();
  if (!filling.isFull) Add(filling.row, StretchAcross());
  return std::move(filling.row);
}

std::pair<PlanItem, PlanItem> PagePlanner::FieldOf(const LayoutItem& field) {
  PlanItem label;  // a column without items is no label
  Naming naming;
  if (field.control) {
    label = ControlPart(*field.control);
    naming.label = dynamic_cast<const Label*>(field.control);
  } else if (!field.text.empty()) {
    label = Part(PlanItem::Kind::Text);
    naming.fixedLabel = SpokenLabel(field.text);
  }
  const auto first = static_cast<std::ptrdiff_t>(plan_.controls_.size());
  PlanItem row = RowOf(field.items, naming);
  const auto named = std::find_if(plan_.controls_.begin() + first, plan_.controls_.end(),
                                  [](const Control* control) { return !IsLabel(control); });
  if (named != plan_.controls_.end()) label.names = *named;
  if (label.kind == PlanItem::Kind::Text) {
    label.partOf = label.names;
    label.text = label.names ? field.text : PlainCaption(field.text);
  }
  return {std::move(label), std::move(row)};
}

/// A text that has the row for itself may take several lines.
void PagePlanner::AddText(Filling& filling, PlanItem text) {
  if (filling.items.size() == 1) {
    text.wraps = text.growsAcross = true;
    filling.isFull = true;
  }
  Add(filling.row, std::move(text));
}

void PagePlanner::AddControl(Filling& filling, Control& control, BoxWidth width) {
  const ControlTraits traits = TraitsOf(control);
  if (traits.role == Role::None) return;
  PlanItem part = ControlPart(control);
  if (traits.role == Role::Label) return AddText(filling, std::move(part));
  if (IsTextBox(Single(control))) {
    part.width = width;
    part.growsAcross = width == BoxWidth::Full;
  }
  plan_.namings_[&control] = filling.naming;
  filling.isFull = filling.isFull || part.growsAcross;
  if (traits.holdsValue) filling.withoutRoom = &control;
  filling.last = &control;
  Add(filling.row, std::move(part));
}

PlanItem PagePlanner::ControlPart(Control& control) {
  const ControlTraits traits = TraitsOf(control);
  PlanItem part = Part(PlanItem::Kind::Control, &control);
  part.growsAcross = traits.growsAcross;
  part.growsDown = traits.growsDown;
  plan_.controls_.push_back(&control);
  return part;
}

PagePlan::PagePlan(const LayoutItem& layout) {
  PagePlanner(*this).Plan(layout);
}

std::string PagePlan::NameOf(Control& control) const {
  const ControlTraits traits = TraitsOf(control);
  std::string own = traits.caption ? PlainCaption(*traits.caption) : std::string();
  const auto found = namings_.find(&control);
  if (found == namings_.end()) return own;
  const Naming& naming = found->second;
  // A button with the same caption in every row is told apart by the name of its row.
  if (naming.rowName) return Joined(NameOf(*naming.rowName), own.empty() ? naming.textBefore : own);
  if (!own.empty()) return own;
  return Joined(naming.label ? SpokenLabel(naming.label->Caption()) : naming.fixedLabel, naming.textBefore);
}

std::vector<Control*> PagePlan::NamedBy(const Control& control) const {
  std::vector<Control*> named;
  for (Control* other : controls_) {
    const auto naming = namings_.find(other);
    const bool follows =
        naming != namings_.end() && (naming->second.label == &control || naming->second.rowName == &control);
    if (other == &control || follows) named.push_back(other);
  }
  return named;
}

std::string SummaryOf(const std::vector<Mark>& marks) {
  if (marks.empty()) return {};
  std::string first;
  std::istringstream words(marks.front().message);
  for (std::string word; words >> word;) first = Joined(first, word);
  const std::size_t more = marks.size() - 1;
  if (more == 0) return first;
  if (more == 1) return first + " (and one more problem)";
  return first + " (and " + std::to_string(more) + " more problems)";
}

}  // namespace kiv::ui
