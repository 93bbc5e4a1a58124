#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/signal.h"
#include "base/window_handle.h"

namespace kiv::ui {

class Container;
class ControlVisitor;

/// Where the input focus goes when it leaves a control.
enum class FocusTo { AnotherControl, Menu, DropDownList, AnotherWindow };

/// A thing on a page, without any toolkit: what it shows, whether it can be used, and its events.
///
/// A control belongs to the container that it was made in, which must outlive it. Events are raised whenever
/// the value changes, whoever changed it, after the value is stored.
class Control {
 public:
  /// `parent` is null for the outermost container only.
  Control(Container* parent, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  const std::string& Name() const { return name_; }
  Container* Parent() const { return parent_; }

  /// Whether this control and every container around it is enabled.
  bool Enabled() const;
  void SetEnabled(bool enabled);
  /// Whether this control and every container around it is visible.
  bool Visible() const;
  void SetVisible(bool visible);
  /// Whether a user can reach the control at all: enabled and visible.
  bool Usable() const { return Enabled() && Visible(); }

  /// Asks the view to move the input focus here. Does nothing while the control is not usable.
  void SetFocus();
  bool HasFocus() const;
  /// The user leaves the control. From a menu, a drop-down list or another window the focus comes back by
  /// itself: the control keeps it. One that becomes disabled or hidden loses it.
  void LoseFocus(FocusTo to = FocusTo::AnotherControl);

  /// The window in which the control is shown; kNoWindow while no view shows it.
  WindowHandle Window();

  virtual void Accept(ControlVisitor& visitor) = 0;

  /// Raised when anything but the value changed: enabled, visible, caption.
  Signal<> AppearanceChanged;
  Signal<> FocusLost;

 protected:
  virtual void RaiseAppearanceChanged();

 private:
  friend class Container;

  Container* Outermost() const;
  /// Whoever has the focus loses it when this change took it out of reach.
  void DropFocusOutOfReach();

  Container* parent_;
  std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
};

/// A control that holds others. A disabled or hidden container disables or hides what it holds.
class Container : public Control {
 public:
  using Control::Control;

  const std::vector<Control*>& Children() const { return children_; }

  /// The control of this name, in any letter case, in this container or, below it, in any container; null
  /// when there is none. An element of an array has its index behind the name, such as `chkTDMA(0)`.
  Control* FindControl(std::string_view name) const;
  /// The control below this container that has the input focus, if any.
  Control* FocusedControl() const;

  /// Raised by the outermost container when a control below it is given the focus.
  Signal<Control&> FocusChanged;
  /// Raised by the outermost container when its window is wanted: whoever shows it fills it in.
  Signal<WindowHandle&> WindowWanted;

 protected:
  void RaiseAppearanceChanged() override;

 private:
  friend class Control;

  std::vector<Control*> children_;  // in the order of making
  Control* focused_ = nullptr;      // kept by the outermost container
};

/// A control that shows a text of its own: a button, a box, a frame. An `&` precedes the mnemonic letter.
template <class Base>
class Captioned : public Base {
 public:
  using Base::Base;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    this->RaiseAppearanceChanged();
  }

 private:
  std::string caption_;
};

}  // namespace kiv::ui
