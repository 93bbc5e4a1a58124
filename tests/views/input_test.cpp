#include <cctype>
#include <stdexcept>

#include "support/fake_host.h"
#include "views/sample_page.h"

namespace kiv::test {
namespace {

using Input = SampleView;
using ui::CheckState;

TEST_F(Input, TypedCharactersPassTheFilter) {
  user_->Focus(page_->txtCount);
  user_->Type("1a2 b3");
  user_->Press("Backspace");
  EXPECT_EQ(page_->txtCount.Text(), "12");
  page_->filtered = 0;
  user_->Press("Home");
  user_->Press("Alt+9");
  user_->Press("Ctrl+Z");
  EXPECT_EQ(page_->filtered, 0);
  EXPECT_NE(page_->txtCount.Text(), "912");
  EXPECT_EQ(user_->See(page_->txtCount).text, page_->txtCount.Text());

  page_->txtCount.SetText("");
  user_->Commit("7é8\U0001F600");
  user_->TypeAtOnce("x4y5");
  EXPECT_EQ(page_->txtCount.Text(), "7845");
  user_->Focus(page_->txtName);
  user_->TypeAtOnce("\U0001F600");
  EXPECT_EQ(page_->txtName.Text(), "\U0001F600");

  user_->Focus(page_->txtLines);
  user_->Type("1x2");
  user_->Press("Return");
  EXPECT_EQ(page_->txtLines.Text(), "12\n");
}

TEST_F(Input, PasteAndUndoPassTheFilterBy) {
  page_->txtCount.SetText("12");
  user_->Focus(page_->txtCount);
  user_->Press("End");
  page_->filtered = 0;
  user_->PasteByMenu("x\ny\r\n");
  EXPECT_EQ(page_->txtCount.Text(), "12x y");
  EXPECT_EQ(user_->See(page_->txtCount).text, "12x y");
  EXPECT_EQ(page_->filtered, 0);

  user_->Focus(page_->txtName);
  user_->Type("ab");
  user_->Undo();
  EXPECT_EQ(user_->See(page_->txtName).text, "");
  EXPECT_EQ(page_->txtName.Text(), "");

  user_->Focus(page_->txtLines);
  user_->PasteByMenu("3,x");
  EXPECT_EQ(page_->txtLines.Text(), "3\nx");
}

TEST_F(Input, EachActRaisesOneEvent) {
  const Count text(page_->txtName.Changed);
  const Count lines(page_->txtLines.Changed);
  const Count box(page_->chkUse.Changed);
  const Count list(page_->cboKind.Changed);
  const Count button(page_->cmdGo.Clicked);
  user_->Focus(page_->txtName);
  user_->Type("ab");
  user_->Focus(page_->txtLines);
  user_->Type("ab");
  user_->Click(page_->chkUse);
  user_->Focus(page_->cboKind);
  user_->Press("Down");
  user_->Click(page_->cmdGo);
  const auto raised = [&] {
    return std::vector{text.raised, lines.raised, box.raised, list.raised, button.raised};
  };
  EXPECT_EQ(raised(), (std::vector{2, 2, 1, 1, 1}));
  EXPECT_TRUE(page_->chkUse.Checked());
  EXPECT_EQ(page_->cboKind.ListIndex(), 0);

  page_->txtName.SetText("changed");
  page_->cboKind.SetItems({{"Only", 0}});
  EXPECT_EQ(raised(), (std::vector{3, 2, 1, 2, 1}));
}

TEST_F(Input, ShowsWhatTheModelMadeOfIt) {
  page_->chkUse.Changed.Connect([this] { page_->chkUse.SetChecked(false); });
  page_->chkUse.SetState(CheckState::Grayed);
  user_->Focus(page_->chkUse);
  for (int i = 0; i < 2; ++i) {
    user_->Press("Space");
    EXPECT_EQ(user_->See(page_->chkUse).check, CheckState::Unchecked);
  }
  page_->cboKind.SetListIndex(1);
  page_->cboKind.Changed.Connect([this] { page_->cboKind.SetListIndex(1); });
  user_->Focus(page_->cboKind);
  user_->Press("Up");
  EXPECT_EQ(user_->See(page_->cboKind).text, "Large");
  page_->optRow.SetIndex(2);
  page_->optRow.Changed.Connect([this] { page_->optRow.SetIndex(2); });
  user_->Click(page_->optRow[0]);
  EXPECT_EQ(user_->See(page_->optRow[0]).check, CheckState::Unchecked);
  EXPECT_EQ(user_->See(page_->optRow[2]).check, CheckState::Checked);

  // A model that became unusable takes no text at all.
  page_->txtArea.SetText("kept");
  user_->Focus(page_->txtArea);
  page_->txtArea.SetEnabled(false);
  user_->Type("x");
  EXPECT_EQ(user_->See(page_->txtArea).text, "kept");
}

TEST_F(Input, TheCaretStaysWithItsCharactersWhateverTheModelMakesOfThem) {
  page_->txtName.SetText("ABC");
  user_->Focus(page_->txtName);
  user_->PutCaret(1);
  EXPECT_EQ(page_->txtName.CaretPosition(), 1U);
  page_->txtName.Changed.Connect([this] {
    std::string kept;
    for (const char c : page_->txtName.Text()) {
      if (c != '.') kept += static_cast<char>(std::toupper(c));
    }
    page_->txtName.SetText(kept);
  });
  user_->Type("x.y");
  EXPECT_EQ(user_->See(page_->txtName).text, "AXYBC");
  EXPECT_EQ(user_->See(page_->txtName).caret, 3);

  page_->txtLines.SetText("7\n8");
  user_->Focus(page_->txtLines);
  user_->Press("Ctrl+End");
  page_->txtLines.Changed.Connect([this] { page_->txtLines.SetText("7\n8"); });  // takes nothing any more
  user_->Type("9");
  EXPECT_EQ(user_->See(page_->txtLines).text, "7\n8");
  EXPECT_EQ(user_->See(page_->txtLines).caret, 3);
}

TEST_F(Input, TheWheelPassesAListThatIsNotInUse) {
  page_->cboKind.SetListIndex(0);
  user_->Focus(page_->txtName);
  user_->TurnWheel(page_->cboKind);
  EXPECT_EQ(page_->cboKind.ListIndex(), 0);
}

TEST_F(Input, AnErrorGoesToTheReporter) {
  const FakeHost host;
  page_->chkUse.Changed.Connect([] { throw std::runtime_error("no luck"); });
  user_->Click(page_->chkUse);
  EXPECT_EQ(host.errors->reports, std::vector<std::string>{"no luck"});
  EXPECT_EQ(user_->See(page_->chkUse).check, CheckState::Checked);
}

}  // namespace
}  // namespace kiv::test
