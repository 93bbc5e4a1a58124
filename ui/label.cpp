#include "ui/label.h"

#include "ui/control_visitor.h"

namespace kiv::ui {

void Label::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void Frame::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
