#include "editor/dn_box.h"

#include <gtest/gtest.h>

#include "support/fake_host.h"
#include "support/test_page.h"

namespace kiv {
namespace {

class DnBox : public ::testing::Test {
 protected:
  void SetMask(const std::string& mask) {
    host_.settings->general[host::kPhoneNumberMask] = mask;
    host::TheEvents().appGeneralState_StateChange.Raise();
  }

  test::FakeHost host_;
  test::TestPage page_;
  XDnBox box_{&page_, "dn"};
};

TEST_F(DnBox, ShowsADnByTheHostsMask) {
  SetMask("###-####");
  box_.SetText("5551234");
  EXPECT_EQ(box_.edit.Text(), "555-1234");
  EXPECT_EQ(box_.Text(), "5551234");
  box_.SetText("1235551234");
  EXPECT_EQ(box_.Mask(), "");
  EXPECT_EQ(box_.edit.Text(), "1235551234");

  int changes = 0;
  box_.Changed.Connect([&] { ++changes; });
  SetMask("(###) ###-####");
  EXPECT_EQ(box_.edit.Text(), "(123) 555-1234");
  EXPECT_EQ(changes, 0);
  box_.edit.Backspace();
  EXPECT_EQ(changes, 1);
}

TEST_F(DnBox, AcceptsMoreDigitsThanTheMaskAndShowsThemBareAfterwards) {
  SetMask("###-####");
  box_.edit.SetFocus();
  box_.edit.Type("55x5-12345");
  EXPECT_EQ(box_.edit.Text(), "555-12345");
  box_.edit.LoseFocus();
  EXPECT_EQ(box_.edit.Text(), "55512345");
}

TEST_F(DnBox, ChecksTheDnAndLeavesItAsItIs) {
  const auto refusal = [this] {
    EXPECT_EQ(box_.IsValid("The title"), box_.Problem().empty());
    for (const auto& message : host_.messages->shown) EXPECT_EQ(message.title, "The title");
    return host_.TakeMessage();
  };
  SetMask("###-####");
  box_.SetText("5551");
  EXPECT_EQ(refusal(), "Number of digits in DN doesn't match mask.");
  EXPECT_TRUE(box_.edit.HasFocus());
  EXPECT_EQ(box_.Text(), "5551");
  box_.SetText("");
  EXPECT_EQ(refusal(), "");
  SetMask("");
  box_.SetText("555-1234");
  EXPECT_EQ(refusal(), "Value for DN may contain only digits.");
  box_.SetEnabled(false);
  EXPECT_EQ(refusal(), "");
  box_.SetEnabled(true);
  box_.SetText("5551234");
  EXPECT_EQ(refusal(), "");
}

TEST_F(DnBox, EditsWhereTheCursorStands) {
  ui::MaskedEdit& edit = box_.edit;
  edit.SetMask("###-####");
  edit.Type("5551234");
  edit.MoveCaret(3);  // before the hyphen is behind the third digit
  EXPECT_EQ(edit.CaretPosition(), 4U);
  edit.Backspace();
  EXPECT_EQ(edit.Text(), "551-234");
  EXPECT_EQ(edit.CaretPosition(), 2U);
  edit.MoveRight();
  EXPECT_EQ(edit.CaretPosition(), 4U);
  edit.MoveLeft();
  edit.Delete();
  EXPECT_EQ(edit.Text(), "552-34");
  edit.Select(0, 4);
  edit.Paste("9-8");
  EXPECT_EQ(edit.Text(), "983-4");
  EXPECT_EQ(edit.CaretPosition(), 2U);
  edit.SetMask("(##)");
  edit.SetText("12");
  EXPECT_EQ(edit.Text(), "(12)");
  edit.SetMask("");
  edit.SetText("né");
  edit.MoveCaret(2);
  edit.Backspace();
  EXPECT_EQ(edit.Text(), "n");
}

}  // namespace
}  // namespace kiv
