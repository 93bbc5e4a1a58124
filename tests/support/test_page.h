#pragma once

#include "ui/control.h"

namespace kiv::test {

/// A page of a test's own; the controls are its members.
struct TestPage : ui::Container {
  TestPage() : Container(nullptr, "page") {}
  void Accept(ui::ControlVisitor&) override {}
};

}  // namespace kiv::test
