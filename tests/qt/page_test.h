#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <memory>
#include <stdexcept>

#include "qt/page_view.h"

namespace kiv::test {

/// A page of a test's own in an active window. `PageType` is a container with a Layout.
template <class PageType>
class PageTest : public ::testing::Test {
 protected:
  PageTest() {
    view_->resize(view_->sizeHint());
    view_->show();
    view_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(view_.get()));
  }

  template <class Widget>
  Widget& The(const ui::Control& control) {
    auto* widget = qobject_cast<Widget*>(view_->WidgetOf(control));
    if (!widget) throw std::runtime_error("no such widget: " + control.Name());
    return *widget;
  }

  std::unique_ptr<PageType> page_ = std::make_unique<PageType>();
  std::unique_ptr<qt::PageView> view_ = std::make_unique<qt::PageView>(*page_, page_->Layout());
};

}  // namespace kiv::test
