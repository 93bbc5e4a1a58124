#pragma once

#include <string>

#include "ui/control.h"

namespace kiv::ui {

/// What a screen reader calls the kind of a control.
enum class Role { None, Text, CheckBox, RadioButton, DropDownList, PushButton, Label, Group, List };

/// What a view has to know about a kind of control before it shows one.
struct ControlTraits {
  Role role = Role::None;    ///< None: a container that has no look of its own
  bool holdsValue = false;   ///< the user enters a value here, which can be marked as wrong
  bool growsAcross = false;  ///< takes the width that others leave
  bool growsDown = false;    ///< takes the height that others leave
  const std::string* caption =
      nullptr;  ///< its own text, as it is at any moment; null for a kind without one
};

ControlTraits TraitsOf(Control& control);

}  // namespace kiv::ui
