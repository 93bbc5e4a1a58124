#include "ui/control_traits.h"

#include "ui/control_visitor.h"

namespace kiv::ui {

namespace {

class TraitsReader final : public ControlVisitor {
 public:
  ControlTraits traits;

  void Visit(TextBox&) override { traits = {Role::Text, true, true, false, nullptr}; }
  void Visit(TextArea&) override { traits = {Role::Text, true, true, true, nullptr}; }
  void Visit(MaskedEdit&) override { traits = {Role::Text, true, true, false, nullptr}; }
  void Visit(ComboBox&) override { traits = {Role::DropDownList, true, true, false, nullptr}; }
  void Visit(ListView&) override { traits = {Role::List, true, true, true, nullptr}; }
  void Visit(CheckBox& box) override { traits = {Role::CheckBox, true, false, false, &box.Caption()}; }
  void Visit(OptionButton& option) override {
    traits = {Role::RadioButton, true, false, false, &option.Caption()};
  }
  void Visit(Button& button) override { traits = {Role::PushButton, false, false, false, &button.Caption()}; }
  void Visit(Label& label) override { traits = {Role::Label, false, false, false, &label.Caption()}; }
  void Visit(Frame& frame) override { traits = {Role::Group, false, false, false, &frame.Caption()}; }
};

}  // namespace

ControlTraits TraitsOf(Control& control) {
  TraitsReader reader;
  control.Accept(reader);
  return reader.traits;
}

}  // namespace kiv::ui
