#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>

#include "qt/sample_page.h"

namespace kiv {
namespace {

using Focus = test::SampleView;

TEST_F(Focus, GoesBothWaysOnce) {
  std::vector<std::string> events;
  page_->FocusChanged.Connect([&events](ui::Control& control) { events.push_back("to " + control.Name()); });
  page_->txtCount.FocusLost.Connect([&events] { events.emplace_back("lost"); });
  page_->txtCount.SetFocus();
  EXPECT_EQ(QApplication::focusWidget(), view_->WidgetOf(page_->txtCount));
  The<QComboBox>(page_->cboKind).setFocus();
  EXPECT_TRUE(page_->cboKind.HasFocus());
  QTest::mouseClick(&The<QLineEdit>(page_->txtTo), Qt::LeftButton);
  EXPECT_TRUE(page_->txtTo.HasFocus());
  EXPECT_EQ(events, (std::vector<std::string>{"to txtCount", "lost", "to cboKind", "to txtTo"}));
}

TEST_F(Focus, ADisabledControlGivesItUp) {
  page_->txtCount.SetFocus();
  page_->txtCount.SetEnabled(false);
  EXPECT_FALSE(page_->txtCount.HasFocus());
  EXPECT_NE(QApplication::focusWidget(), view_->WidgetOf(page_->txtCount));
}

TEST_F(Focus, AHandlerMayHoldTheFocus) {
  page_->txtCount.SetFocus();
  page_->txtName.FocusLost.Connect([this] { page_->chkUse.SetFocus(); });
  page_->txtName.SetFocus();
  QTest::keyClick(&The<QLineEdit>(page_->txtName), Qt::Key_Tab);
  const ui::Control* focused = page_->FocusedControl();
  ASSERT_NE(focused, nullptr);
  EXPECT_EQ(QApplication::focusWidget(), view_->WidgetOf(*focused));
}

TEST_F(Focus, StaysWhileTheWindowOrAPopupTakesOver) {
  page_->txtName.SetFocus();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_TRUE(page_->txtName.HasFocus());
  // What a check does after its message box: the window is not active again yet.
  page_->txtTo.SetFocus();
  view_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(view_.get()));
  EXPECT_EQ(QApplication::focusWidget(), view_->WidgetOf(page_->txtTo));
  EXPECT_TRUE(page_->txtTo.HasFocus());

  int lost = 0;
  page_->cboKind.FocusLost.Connect([&lost] { ++lost; });
  page_->cboKind.SetFocus();
  The<QComboBox>(page_->cboKind).showPopup();
  QApplication::processEvents();
  EXPECT_TRUE(page_->cboKind.HasFocus());
  The<QComboBox>(page_->cboKind).hidePopup();
  QApplication::processEvents();
  EXPECT_TRUE(page_->cboKind.HasFocus());
  EXPECT_EQ(lost, 0);
}

TEST_F(Focus, ScrollsIntoView) {
  view_->resize(220, 110);
  QApplication::processEvents();
  const auto isInView = [this](const ui::Control& control) {
    const QWidget* widget = view_->WidgetOf(control);
    return widget->visibleRegion().contains(QRect(0, 0, 10, widget->height() - 1));
  };
  EXPECT_FALSE(isInView(page_->txtFrom));
  page_->txtFrom.SetFocus();
  EXPECT_TRUE(isInView(page_->txtFrom));
}

TEST_F(Focus, APageThatComesForwardTakesIt) {
  QStackedWidget pages;
  pages.addWidget(new QLineEdit);
  pages.addWidget(view_.get());
  pages.resize(220, 110);
  pages.show();
  pages.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&pages));
  page_->txtTo.SetFocus();
  pages.setCurrentWidget(view_.get());
  EXPECT_EQ(QApplication::focusWidget(), view_->WidgetOf(page_->txtTo));
  EXPECT_TRUE(page_->txtTo.HasFocus());
  EXPECT_FALSE(view_->WidgetOf(page_->txtTo)->visibleRegion().isEmpty());
  view_.reset();
}

TEST_F(Focus, TheTabKeyFollowsTheLayout) {
  const std::vector<const ui::Control*> order = {&page_->txtName, &page_->cmdGo,   &page_->txtCount,
                                                 &page_->chkUse,  &page_->cboKind, &page_->txtArea,
                                                 &page_->txtFrom, &page_->txtTo};
  page_->txtName.SetFocus();
  for (const ui::Control* control : order) {
    EXPECT_TRUE(control->HasFocus()) << control->Name();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
}

TEST_F(Focus, MnemonicsReachFieldsAndButtons) {
  int clicks = 0;
  page_->cmdGo.Clicked.Connect([&clicks] { ++clicks; });
  page_->txtName.SetFocus();
  QTest::keyClick(view_.get(), Qt::Key_O, Qt::AltModifier);
  EXPECT_TRUE(page_->txtCount.HasFocus());
  QTest::keyClick(view_.get(), Qt::Key_A, Qt::AltModifier);
  EXPECT_TRUE(page_->txtArea.HasFocus());
  page_->lblArea.SetCaption("&City:");
  QTest::keyClick(view_.get(), Qt::Key_K, Qt::AltModifier);
  EXPECT_TRUE(page_->cboKind.HasFocus());
  QTest::keyClick(view_.get(), Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(page_->txtArea.HasFocus());
  QTest::keyClick(view_.get(), Qt::Key_U, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return page_->chkUse.Checked(); }));
  QTest::keyClick(view_.get(), Qt::Key_G, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&clicks] { return clicks == 1; }));
}

}  // namespace
}  // namespace kiv
