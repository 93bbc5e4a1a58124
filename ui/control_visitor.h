#pragma once

#include "ui/buttons.h"
#include "ui/combo_box.h"
#include "ui/label.h"
#include "ui/list_view.h"
#include "ui/masked_edit.h"
#include "ui/option_button.h"
#include "ui/text_box.h"

namespace kiv::ui {

/// One function for each kind of control: a view that forgets a kind does not compile.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;

  virtual void Visit(TextBox& control) = 0;
  virtual void Visit(TextArea& control) = 0;
  virtual void Visit(CheckBox& control) = 0;
  virtual void Visit(OptionButton& control) = 0;
  virtual void Visit(ComboBox& control) = 0;
  virtual void Visit(Button& control) = 0;
  virtual void Visit(Label& control) = 0;
  virtual void Visit(Frame& control) = 0;
  virtual void Visit(ListView& control) = 0;
  virtual void Visit(MaskedEdit& control) = 0;
};

}  // namespace kiv::ui
