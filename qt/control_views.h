#pragma once

#include "qt/control_view.h"
#include "ui/control_visitor.h"

namespace kiv::qt {

/// How wide a box wants to be: as wide as there is room, or as a few digits need.
enum class BoxWidth { Full, Short };

/// Makes the widget for one kind of control; `parent` owns it. A new kind of control adds its function here
/// and its file to the folder.
ControlView* MakeView(ui::TextBox& control, QWidget* parent, BoxWidth width);
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
ControlView* MakeView(ui::Control& control, QWidget* parent, BoxWidth width);

}  // namespace kiv::qt
