#include "qt/control_views.h"

namespace kiv::qt {

namespace {

class ViewFactory final : public ui::ControlVisitor {
 public:
  ViewFactory(QWidget* parent, ui::BoxWidth width) : parent_(parent), width_(width) {}

  ControlView* Made() const { return made_; }

  void Visit(ui::TextBox& control) override { made_ = MakeView(control, parent_, width_); }
  void Visit(ui::TextArea& control) override { made_ = MakeView(control, parent_); }
  void Visit(ui::CheckBox& control) override { made_ = MakeView(control, parent_); }
  void Visit(ui::OptionButton& control) override { made_ = MakeView(control, parent_); }
  void Visit(ui::ComboBox& control) override { made_ = MakeView(control, parent_); }
  void Visit(ui::Button& control) override { made_ = MakeView(control, parent_); }
  void Visit(ui::Label& control) override { made_ = MakeView(control, parent_); }
  void Visit(ui::Frame& control) override { made_ = MakeView(control, parent_); }
  void Visit(ui::ListView& control) override { made_ = MakeView(control, parent_); }
  void Visit(ui::MaskedEdit& control) override { made_ = MakeView(control, parent_); }

 private:
  QWidget* parent_;
  ui::BoxWidth width_;
  ControlView* made_ = nullptr;
};

}  // namespace

ControlView* MakeView(ui::Control& control, QWidget* parent, ui::BoxWidth width) {
  ViewFactory factory(parent, width);
  control.Accept(factory);
  return factory.Made();
}

}  // namespace kiv::qt
