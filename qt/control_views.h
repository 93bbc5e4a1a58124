#pragma once

#include "qt/control_view.h"
#include "ui/control_visitor.h"
#include "ui/page_plan.h"

namespace kiv::qt {

/// Makes the widget for one kind of control; `parent` owns it. A new kind of control adds its function here
/// and its file to the folder.
ControlView* MakeView(ui::TextBox& control, QWidget* parent, ui::BoxWidth width);
ControlView* MakeView(ui::TextArea& control, QWidget* parent);
ControlView* MakeView(ui::CheckBox& control, QWidget* parent);
ControlView* MakeView(ui::OptionButton& control, QWidget* parent);
ControlView* MakeView(ui::ComboBox& control, QWidget* parent);
ControlView* MakeView(ui::Button& control, QWidget* parent);
ControlView* MakeView(ui::Label& control, QWidget* parent);
ControlView* MakeView(ui::Frame& control, QWidget* parent);
ControlView* MakeView(ui::ListView& control, QWidget* parent);
ControlView* MakeView(ui::MaskedEdit& control, QWidget* parent);

/// Makes the widget for a control of any kind; null for a container that has no look of its own.
ControlView* MakeView(ui::Control& control, QWidget* parent, ui::BoxWidth width);

}  // namespace kiv::qt
