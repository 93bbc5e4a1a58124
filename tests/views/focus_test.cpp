#include "views/sample_page.h"

namespace kiv::test {
namespace {

using Focus = SampleView;

TEST_F(Focus, GoesBothWaysOnce) {
  std::vector<std::string> events;
  page_->FocusChanged.Connect([&events](ui::Control& control) { events.push_back("to " + control.Name()); });
  page_->txtCount.FocusLost.Connect([&events] { events.emplace_back("lost"); });
  page_->txtCount.SetFocus();
  EXPECT_TRUE(user_->See(page_->txtCount).focused);
  user_->Focus(page_->cboKind);
  EXPECT_TRUE(page_->cboKind.HasFocus());
  user_->Click(page_->txtTo);
  EXPECT_TRUE(page_->txtTo.HasFocus());
  EXPECT_EQ(events, (std::vector<std::string>{"to txtCount", "lost", "to cboKind", "to txtTo"}));
  page_->txtTo.SetEnabled(false);
  EXPECT_FALSE(page_->txtTo.HasFocus() || user_->See(page_->txtTo).focused);
}

TEST_F(Focus, AHandlerMayHoldIt) {
  page_->txtCount.SetFocus();
  page_->txtName.FocusLost.Connect([this] { page_->chkUse.SetFocus(); });
  page_->txtName.SetFocus();
  user_->Press("Tab");
  const ui::Control* focused = page_->FocusedControl();
  ASSERT_NE(focused, nullptr);
  EXPECT_TRUE(user_->See(*focused).focused);
}

TEST_F(Focus, StaysWhileAnotherWindowOrADropDownListTakesOver) {
  page_->txtName.SetFocus();
  user_->GoToOtherWindow();
  EXPECT_TRUE(page_->txtName.HasFocus());
  // What a check does after its message box: the window is not active again yet.
  page_->txtTo.SetFocus();
  user_->ComeBack();
  EXPECT_TRUE(user_->See(page_->txtTo).focused);
  EXPECT_TRUE(page_->txtTo.HasFocus());

  const Count lost(page_->cboKind.FocusLost);
  page_->cboKind.SetFocus();
  user_->ShowDropDown(page_->cboKind, true);
  user_->ShowDropDown(page_->cboKind, false);
  EXPECT_TRUE(page_->cboKind.HasFocus());
  EXPECT_EQ(lost.raised, 0);
}

TEST_F(Focus, ComesIntoViewAlsoOnAPageThatWasHidden) {
  user_->Resize(220, 110);
  EXPECT_FALSE(user_->See(page_->txtFrom).inView);
  page_->txtFrom.SetFocus();
  EXPECT_TRUE(user_->See(page_->txtFrom).inView);
  user_->Hide();
  page_->txtName.SetFocus();
  user_->ShowAgain();
  EXPECT_TRUE(user_->See(page_->txtName).focused);
  EXPECT_TRUE(user_->See(page_->txtName).inView);
}

TEST_F(Focus, TheTabKeyFollowsTheLayoutAndStopsAtTheChosenOption) {
  page_->optRow.SetIndex(1);
  const std::vector<const ui::Control*> order = {
      &page_->txtName,   &page_->cmdGo,     &page_->txtCount, &page_->chkUse,    &page_->cboKind,
      &page_->txtArea,   &page_->txtFrom,   &page_->txtTo,    &page_->chkRow[0], &page_->chkRow[1],
      &page_->optRow[1], &page_->chkRow[2], &page_->txtLines};
  page_->txtName.SetFocus();
  for (const ui::Control* control : order) {
    EXPECT_TRUE(control->HasFocus()) << control->Name();
    user_->Press("Tab");
  }
  EXPECT_EQ(page_->txtLines.Text(), "");
}

TEST_F(Focus, TheArrowKeysMoveTheChoice) {
  page_->optRow.SetIndex(1);
  page_->optRow[1].SetFocus();
  user_->Press("Down");
  EXPECT_EQ(page_->optRow.Index(), 2);
  user_->Press("Right");
  EXPECT_EQ(page_->optRow.Index(), 0);
  user_->Press("Up");
  EXPECT_EQ(page_->optRow.Index(), 2);
  EXPECT_TRUE(user_->See(page_->optRow[2]).focused);
  page_->optRow.Changed.Connect([this] {
    page_->optRow.SetIndex(2);
    page_->txtName.SetFocus();
  });
  user_->Press("Up");
  EXPECT_EQ(user_->See(page_->optRow[2]).check, ui::CheckState::Checked);
  EXPECT_TRUE(user_->See(page_->txtName).focused);
}

TEST_F(Focus, MnemonicsReachFieldsAndButtons) {
  const Count clicks(page_->cmdGo.Clicked);
  page_->lblArea.SetCaption("&City:");
  for (const auto& [keys, control] : {std::pair<const char*, ui::Control*>{"Alt+O", &page_->txtCount},
                                      {"Alt+K", &page_->cboKind},
                                      {"Alt+C", &page_->txtArea}}) {
    user_->Press(keys);
    EXPECT_TRUE(control->HasFocus()) << keys;
  }
  user_->Press("Alt+U");
  EXPECT_TRUE(user_->WaitFor([this] { return page_->chkUse.Checked(); }));
  user_->Press("Alt+G");
  EXPECT_TRUE(user_->WaitFor([&clicks] { return clicks.raised == 1; }));
}

}  // namespace
}  // namespace kiv::test
