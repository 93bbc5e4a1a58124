#pragma once

#include "ui/control.h"

namespace kiv::ui {

/// A text that the tab changes while it is shown. Fixed texts stand in the layout.
class Label : public Captioned<Control> {
 public:
  using Captioned::Captioned;
  void Accept(ControlVisitor& visitor) override;
};

/// A titled group of controls.
class Frame : public Captioned<Container> {
 public:
  using Captioned::Captioned;
  void Accept(ControlVisitor& visitor) override;
};

}  // namespace kiv::ui
