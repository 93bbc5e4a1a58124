#include "qt/page_builder.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "qt/control_views.h"
#include "qt/mark_room.h"
#include "qt/text.h"

namespace kiv::qt {

namespace {

using ui::LayoutItem;
using Kind = LayoutItem::Kind;

/// The columns of a form.
constexpr int kLabelColumn = 0;
constexpr int kFieldColumn = 1;

bool IsLabel(const ControlView& view) {
  return qobject_cast<QLabel*>(&view.Widget()) != nullptr;
}

QLabel* MakeText(const std::string& text, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(ToQt(text));
  return label;
}

bool IsTextBox(const LayoutItem& item) {
  return item.kind == Kind::Single && dynamic_cast<const ui::TextBox*>(item.control);
}

bool IsText(const LayoutItem& item) {
  return item.kind == Kind::Text ||
         (item.kind == Kind::Single && dynamic_cast<const ui::Label*>(item.control));
}

/// The label of a field, whether it changes or not.
const std::string& CaptionOf(const LayoutItem& field) {
  const auto* label = dynamic_cast<const ui::Label*>(field.control);
  return label ? label->Caption() : field.text;
}

/// A button with the same caption in every row is told apart by the name of its row.
void NameInRow(QWidget& widget, const QString& rowName) {
  if (!qobject_cast<QAbstractButton*>(&widget)) return;
  widget.setAccessibleName(rowName + u' ' + widget.accessibleName());
}

/// A number is followed by its unit, or by a word between it and the number behind.
BoxWidth WidthOf(const std::vector<LayoutItem>& row, std::size_t i) {
  const bool isFirst = i + 1 < row.size() && row[i + 1].kind == Kind::Text;
  const bool isSecond = i >= 2 && row[i - 1].kind == Kind::Text && IsTextBox(row[i - 2]);
  return isFirst || isSecond ? BoxWidth::Short : BoxWidth::Full;
}

/// Whether the item is a text that belongs to what stands before it, and not between two numbers.
bool IsUnit(const std::vector<LayoutItem>& row, std::size_t i) {
  return IsText(row[i]) && !(i + 1 < row.size() && IsTextBox(row[i + 1]));
}

}  // namespace

void PageBuilder::Build(const LayoutItem& page, QWidget* content) {
  auto* column = new QVBoxLayout(content);
  if (page.kind == Kind::Column) {
    for (const LayoutItem& item : page.items) AddToColumn(*column, item, content);
  } else {
    AddToColumn(*column, page, content);
  }
  // Without anything that grows, the room below belongs to nobody.
  if (!column->expandingDirections().testFlag(Qt::Vertical)) column->addStretch(1);
}

void PageBuilder::AddToColumn(QBoxLayout& column, const LayoutItem& item, QWidget* parent) {
  switch (item.kind) {
    case Kind::Stretch: column.addStretch(1); return;
    case Kind::Column:
    case Kind::Group:
    case Kind::Grid:
    case Kind::Form: AddArea(column, item, parent); return;
    case Kind::Row:
    case Kind::Field:
    case Kind::Single:
    case Kind::Text: break;
  }
  auto* row = new QHBoxLayout;
  column.addLayout(row);
  if (item.kind == Kind::Row) {
    FillRow(*row, item.items, parent, {});
  } else {
    FillRow(*row, {item}, parent, {});
  }
}

void PageBuilder::AddArea(QBoxLayout& box, const LayoutItem& area, QWidget* parent) {
  if (area.kind == Kind::Form) {
    // A QFormLayout would give a wrapped text the height of its narrowest look.
    auto* form = new QGridLayout;
    form->setColumnStretch(kFieldColumn, 1);
    box.addLayout(form);
    for (const LayoutItem& item : area.items) AddToForm(*form, item, parent);
    return;
  }
  if (area.kind == Kind::Grid) {
    AddGrid(box, area, parent);
    return;
  }
  QVBoxLayout* column = nullptr;
  if (ControlView* group = area.control ? Make(*area.control, parent, BoxWidth::Full) : nullptr) {
    parent = &group->Widget();
    column = new QVBoxLayout(parent);
    box.addWidget(parent);
  } else {
    column = new QVBoxLayout;
    box.addLayout(column);
  }
  for (const LayoutItem& item : area.items) AddToColumn(*column, item, parent);
}

void PageBuilder::AddGrid(QBoxLayout& box, const LayoutItem& grid, QWidget* parent) {
  auto* cells = new QGridLayout;
  box.addLayout(cells);
  int line = 0;
  for (const LayoutItem& row : grid.items) {
    QString rowName;
    int place = 0;
    for (const LayoutItem& item : row.items) {
      const std::size_t firstView = views_.size();
      auto* cell = new QHBoxLayout;
      cells->addLayout(cell, line, place);
      FillRow(*cell, {item}, parent, rowName);
      if (place++ == 0) {
        rowName = firstView < views_.size() ? views_[firstView]->Widget().accessibleName() : QString();
      } else if (firstView < views_.size()) {
        NameInRow(views_[firstView]->Widget(), rowName);
      }
    }
    if (!row.items.empty()) cells->setColumnStretch(place - 1, 1);
    ++line;
  }
}

void PageBuilder::AddToForm(QGridLayout& form, const LayoutItem& item, QWidget* parent) {
  const int line = form.rowCount();
  if (item.kind != Kind::Field) {
    auto* column = new QVBoxLayout;
    form.addLayout(column, line, kLabelColumn, 1, -1);
    AddToColumn(*column, item, parent);
    return;
  }
  QLabel* label = MakeFieldLabel(item, parent);
  auto* row = new QHBoxLayout;
  form.addLayout(row, line, kFieldColumn);
  FillField(*row, item, label, parent);
  if (!label) return;
  const bool isTall = row->expandingDirections().testFlag(Qt::Vertical);
  const int side = label->style()->styleHint(QStyle::SH_FormLayoutLabelAlignment, nullptr, label);
  label->setAlignment(Qt::Alignment(side & Qt::AlignHorizontal_Mask) |
                      (isTall ? Qt::AlignTop : Qt::AlignVCenter));
  form.addWidget(label, line, kLabelColumn);
  formLabels_.push_back(label);
}

/// The label in front of a field; null for a field that has none.
QLabel* PageBuilder::MakeFieldLabel(const LayoutItem& field, QWidget* parent) {
  if (field.control) return qobject_cast<QLabel*>(&Make(*field.control, parent, BoxWidth::Full)->Widget());
  return field.text.empty() ? nullptr : MakeText(field.text, parent);
}

/// Adds what stands behind the label, and ties the label to its first control.
void PageBuilder::FillField(QBoxLayout& box, const LayoutItem& field, QLabel* label, QWidget* parent) {
  const auto firstView = static_cast<std::ptrdiff_t>(views_.size());
  FillRow(box, field.items, parent, SpokenLabel(CaptionOf(field)));
  if (!label) return;
  const auto named = std::find_if(views_.begin() + firstView, views_.end(),
                                  [](const ControlView* view) { return !IsLabel(*view); });
  if (named != views_.end()) label->setBuddy(&(*named)->Widget());
  if (auto* labelView = dynamic_cast<ControlView*>(label)) {
    labelView->ShowAppearance();
  } else if (named != views_.end()) {
    (*named)->AddCompanion(label);
  } else {
    label->setText(PlainCaption(field.text));
  }
}

/// One row while it is filled.
struct PageBuilder::Row {
  QBoxLayout& box;
  QWidget* parent;
  const std::vector<LayoutItem>& items;
  QString fieldName;
  QString name = fieldName;            ///< what a screen reader calls the next control without a caption
  bool isFull = false;                 ///< something takes the whole width
  ControlView* last = nullptr;         ///< the control that a text belongs to
  ControlView* withoutRoom = nullptr;  ///< its mark's icon stands behind its unit

  void AddMarkRoom() {
    if (!withoutRoom) return;
    auto* room = new MarkRoom(parent);
    box.addSpacerItem(room);
    std::exchange(withoutRoom, nullptr)->SetMarkRoom(room);
  }

  /// A text that has the row for itself may take several lines.
  void AddText(QLabel& text) {
    box.addWidget(&text);
    if (items.size() > 1) return;
    text.setWordWrap(true);
    isFull = true;
  }
};

void PageBuilder::FillRow(QBoxLayout& box, const std::vector<LayoutItem>& items, QWidget* parent,
                          const QString& fieldName) {
  Row row{box, parent, items, fieldName};
  for (std::size_t i = 0; i < items.size(); ++i) {
    const LayoutItem& item = items[i];
    if (!IsUnit(items, i)) row.AddMarkRoom();
    switch (item.kind) {
      case Kind::Single: AddControl(row, *item.control, WidthOf(items, i)); break;
      case Kind::Text: {
        QLabel* text = MakeText(item.text, parent);
        row.AddText(*text);
        if (row.last) row.last->AddCompanion(text);
        row.name = (fieldName + u' ' + text->text()).trimmed();
        break;
      }
      case Kind::Stretch:
        box.addStretch(1);
        row.isFull = true;
        break;
      case Kind::Field:
      case Kind::Row: {
        QLabel* label = item.kind == Kind::Field ? MakeFieldLabel(item, parent) : nullptr;
        if (label) box.addWidget(label);
        auto* inner = new QHBoxLayout;
        box.addLayout(inner);
        FillField(*inner, item, label, parent);
        row.isFull = true;
        break;
      }
      case Kind::Column:
      case Kind::Group:
      case Kind::Grid:
      case Kind::Form:
        AddArea(box, item, parent);
        row.isFull = true;
        break;
    }
  }
  row.AddMarkRoom();
  if (!row.isFull) box.addStretch(1);
}

void PageBuilder::AddControl(Row& row, ui::Control& control, BoxWidth width) {
  ControlView* view = Make(control, row.parent, width);
  if (!view) return;
  QWidget& widget = view->Widget();
  if (IsLabel(*view)) {
    row.AddText(static_cast<QLabel&>(widget));
    return;
  }
  row.box.addWidget(&widget);
  if (!row.name.isEmpty() && widget.accessibleName().isEmpty()) widget.setAccessibleName(row.name);
  if (widget.sizePolicy().expandingDirections().testFlag(Qt::Horizontal)) row.isFull = true;
  if (view->HoldsValue()) row.withoutRoom = view;
  row.last = view;
}

ControlView* PageBuilder::Make(ui::Control& control, QWidget* parent, BoxWidth width) {
  ControlView* view = MakeView(control, parent, width);
  if (view) views_.push_back(view);
  return view;
}

}  // namespace kiv::qt
