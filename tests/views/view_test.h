#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/test_page.h"
#include "views/view_driver.h"

namespace kiv::test {

/// A page and a user in front of it. `PageType` is a TestPage with a Layout.
template <class PageType>
class ViewTest : public ::testing::Test {
 protected:
  ViewTest() { user_->Open(*page_, page_->Layout()); }

  std::unique_ptr<PageType> page_ = std::make_unique<PageType>();
  std::unique_ptr<ViewDriver> user_ = MakeViewDriver();
};

/// Number of times that an event was raised.
struct Count {
  explicit Count(Signal<>& event) : connection(event.Connect([this] { ++raised; })) {}
  int raised = 0;
  ScopedConnection connection;
};

}  // namespace kiv::test
