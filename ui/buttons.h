#pragma once

#include <cstdint>

#include "ui/control.h"

namespace kiv::ui {

/// A push button.
class Button : public Captioned<Control> {
 public:
  using Captioned::Captioned;

  /// The user presses the button; ignored while it is not usable.
  void Click();

  void Accept(ControlVisitor& visitor) override;

  Signal<> Clicked;
};

/// States of a check box, by their classic values.
enum class CheckState : std::int16_t { Unchecked = 0, Checked = 1, Grayed = 2 };

/// A box with a check mark and a caption.
class CheckBox : public Captioned<Control> {
 public:
  using Captioned::Captioned;

  std::int16_t Value() const { return static_cast<std::int16_t>(state_); }
  bool Checked() const { return state_ == CheckState::Checked; }
  void SetState(CheckState state);
  void SetChecked(bool checked) { SetState(checked ? CheckState::Checked : CheckState::Unchecked); }

  /// The user clicks the box: checked becomes unchecked, anything else checked. Ignored while not usable.
  void Click();

  void Accept(ControlVisitor& visitor) override;

  Signal<> Changed;

 private:
  CheckState state_ = CheckState::Unchecked;
};

}  // namespace kiv::ui
