#include "qt/page_builder.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QStyle>
#include <algorithm>

#include "qt/control_views.h"
#include "qt/mark_room.h"
#include "qt/text.h"

namespace kiv::qt {

using ui::PlanItem;
using Kind = PlanItem::Kind;

void PageBuilder::Build(const PlanItem& root, QWidget* content) {
  Fill(*new QVBoxLayout(content), root, content);
  TieTexts();
}

void PageBuilder::Fill(QBoxLayout& box, const PlanItem& whole, QWidget* parent) {
  for (const PlanItem& item : whole.items) Add(box, item, parent);
}

void PageBuilder::Add(QBoxLayout& box, const PlanItem& item, QWidget* parent) {
  switch (item.kind) {
    case Kind::Column:
    case Kind::Row: {
      auto* inner =
          new QBoxLayout(item.kind == Kind::Row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
      box.addLayout(inner);
      return Fill(*inner, item, parent);
    }
    case Kind::Grid: {
      // A QFormLayout would give a wrapped text the height of its narrowest look.
      auto* grid = new QGridLayout;
      box.addLayout(grid);
      return FillGrid(*grid, item, parent);
    }
    case Kind::Group: return AddGroup(box, item, parent);
    case Kind::Control: return box.addWidget(MakeControl(item, parent));
    case Kind::Text: return box.addWidget(MakeText(item, parent));
    case Kind::MarkRoom: {
      auto* room = new MarkRoom(parent);
      box.addSpacerItem(room);
      return ViewOf(item.control)->SetMarkRoom(room);
    }
    case Kind::Stretch: return box.addStretch(1);
  }
}

void PageBuilder::AddGroup(QBoxLayout& box, const PlanItem& group, QWidget* parent) {
  QWidget* frame = MakeControl(group, parent);
  box.addWidget(frame);
  Fill(*new QVBoxLayout(frame), group, frame);
}

void PageBuilder::FillGrid(QGridLayout& grid, const PlanItem& item, QWidget* parent) {
  grid.setColumnStretch(item.growingColumn, 1);
  for (const PlanItem& cell : item.items) {
    if (cell.formLabel) {
      AddFormLabel(grid, cell, parent);
      continue;
    }
    auto* box = new QBoxLayout(cell.kind == Kind::Row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    grid.addLayout(box, cell.line, cell.column, 1, cell.columns);
    Fill(*box, cell, parent);
  }
}

void PageBuilder::AddFormLabel(QGridLayout& form, const PlanItem& item, QWidget* parent) {
  auto* label =
      static_cast<QLabel*>(item.kind == Kind::Text ? MakeText(item, parent) : MakeControl(item, parent));
  const int side = label->style()->styleHint(QStyle::SH_FormLayoutLabelAlignment, nullptr, label);
  label->setAlignment(Qt::Alignment(side & Qt::AlignHorizontal_Mask) |
                      (item.alignTop ? Qt::AlignTop : Qt::AlignVCenter));
  form.addWidget(label, item.line, item.column);
  formLabels_.push_back(label);
}

QWidget* PageBuilder::MakeText(const PlanItem& text, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(ToQt(text.text));
  label->setWordWrap(text.wraps);
  texts_.emplace_back(label, &text);
  return label;
}

QWidget* PageBuilder::MakeControl(const PlanItem& item, QWidget* parent) {
  ControlView* view = MakeView(*item.control, parent, item.width);
  views_.push_back(view);
  if (auto* label = qobject_cast<QLabel*>(&view->Widget())) {
    label->setWordWrap(item.wraps);
    texts_.emplace_back(label, &item);
  }
  return &view->Widget();
}

/// Ties texts to the controls that they name or belong to, which may stand behind them.
void PageBuilder::TieTexts() {
  for (const auto& [label, item] : texts_) {
    if (const ControlView* named = ViewOf(item->names)) label->setBuddy(&named->Widget());
    if (ControlView* whole = ViewOf(item->partOf)) whole->AddCompanion(label);
    if (item->kind == Kind::Control) ViewOf(item->control)->ShowAppearance();
  }
}

ControlView* PageBuilder::ViewOf(const ui::Control* control) const {
  if (!control) return nullptr;
  const auto found = std::find_if(views_.begin(), views_.end(),
                                  [control](const ControlView* view) { return &view->Control() == control; });
  return found == views_.end() ? nullptr : *found;
}

}  // namespace kiv::qt
