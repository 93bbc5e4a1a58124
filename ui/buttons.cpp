#include "ui/buttons.h"

#include "ui/control_visitor.h"

namespace kiv::ui {

void Button::Click() {
  if (Usable()) Clicked.Raise();
}

void Button::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void CheckBox::SetState(CheckState state) {
  if (state_ == state) return;
  state_ = state;
  Changed.Raise();
}

void CheckBox::Click() {
  if (Usable()) SetChecked(!Checked());
}

void CheckBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
