#include "qt/page_builder.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QStyle>
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

/// A number is followed by its unit, or by a word between it and the number behind.
BoxWidth WidthOf(const std::vector<LayoutItem>& row, std::size_t i) {
  const bool isFirst = i + 1 < row.size() && row[i + 1].kind == Kind::Text;
  const bool isSecond = i >= 2 && row[i - 1].kind == Kind::Text && IsTextBox(row[i - 2]);
  return isFirst || isSecond ? BoxWidth::Short : BoxWidth::Full;
}

void AddMarkRoom(QBoxLayout& row, ControlView& view, QWidget* parent) {
  auto* room = new MarkRoom(parent);
  row.addSpacerItem(room);
  view.SetMarkRoom(room);
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
    case Kind::Form: AddArea(column, item, parent); return;
    case Kind::Row:
    case Kind::Field:
    case Kind::Single:
    case Kind::Text: break;
  }
  auto* row = new QHBoxLayout;
  column.addLayout(row);
  if (item.kind == Kind::Row) {
    FillRow(*row, item.items, parent);
  } else {
    FillRow(*row, {item}, parent);
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
void PageBuilder::FillField(QBoxLayout& row, const LayoutItem& field, QLabel* label, QWidget* parent) {
  const std::size_t firstView = views_.size();
  FillRow(row, field.items, parent, label ? SpokenLabel(FromQt(label->text())) : QString());
  if (!label || firstView == views_.size()) return;
  ControlView& first = *views_[firstView];
  if (!IsLabel(first)) label->setBuddy(&first.Widget());
  if (auto* labelView = dynamic_cast<ControlView*>(label)) {
    labelView->ShowAppearance();
  } else {
    first.AddCompanion(label);
    if (!label->buddy()) label->setText(PlainCaption(field.text));
  }
}

/// `fieldName` is what a screen reader calls the controls that have no caption.
void PageBuilder::FillRow(QBoxLayout& row, const std::vector<LayoutItem>& items, QWidget* parent,
                          const QString& fieldName) {
  QString name = fieldName;
  bool filled = false;                 // something takes the whole width
  ControlView* last = nullptr;         // the control that a text belongs to
  ControlView* withoutRoom = nullptr;  // its mark's icon stands behind the texts that belong to it
  for (std::size_t i = 0; i < items.size(); ++i) {
    const LayoutItem& item = items[i];
    const bool isUnit = IsText(item) && !(i + 1 < items.size() && IsTextBox(items[i + 1]));
    if (withoutRoom && !isUnit) AddMarkRoom(row, *std::exchange(withoutRoom, nullptr), parent);
    switch (item.kind) {
      case Kind::Single: {
        ControlView* view = Make(*item.control, parent, WidthOf(items, i));
        if (!view) break;
        QWidget& widget = view->Widget();
        row.addWidget(&widget);
        if (IsLabel(*view)) {
          if (items.size() > 1) break;
          static_cast<QLabel&>(widget).setWordWrap(true);
          filled = true;
          break;
        }
        if (!name.isEmpty() && widget.accessibleName().isEmpty()) widget.setAccessibleName(name);
        if (widget.sizePolicy().expandingDirections().testFlag(Qt::Horizontal)) filled = true;
        if (view->HoldsValue()) withoutRoom = view;
        last = view;
        break;
      }
      case Kind::Text: {
        QLabel* text = MakeText(item.text, parent);
        row.addWidget(text);
        if (last) last->AddCompanion(text);
        if (items.size() == 1) {
          text->setWordWrap(true);
          filled = true;
        }
        name = (fieldName + u' ' + text->text()).trimmed();
        break;
      }
      case Kind::Stretch:
        row.addStretch(1);
        filled = true;
        break;
      case Kind::Field: {
        QLabel* label = MakeFieldLabel(item, parent);
        if (label) row.addWidget(label);
        auto* field = new QHBoxLayout;
        row.addLayout(field);
        FillField(*field, item, label, parent);
        filled = true;
        break;
      }
      case Kind::Row: {
        auto* inner = new QHBoxLayout;
        row.addLayout(inner);
        FillRow(*inner, item.items, parent, fieldName);
        filled = true;
        break;
      }
      case Kind::Column:
      case Kind::Group:
      case Kind::Form:
        AddArea(row, item, parent);
        filled = true;
        break;
    }
  }
  if (withoutRoom) AddMarkRoom(row, *withoutRoom, parent);
  if (!filled) row.addStretch(1);
}

ControlView* PageBuilder::Make(ui::Control& control, QWidget* parent, BoxWidth width) {
  ControlView* view = MakeView(control, parent, width);
  if (view) views_.push_back(view);
  return view;
}

}  // namespace kiv::qt
