#include "views/sample_page.h"

namespace kiv::test {
namespace {

using Life = SampleView;

TEST_F(Life, APageOutlivesItsModel) {
  using Controls = std::vector<const ui::Control*>;
  const Controls keyed = {&page_->txtCount, &page_->cboKind, &page_->txtLines};
  const Controls clicked = {&page_->chkUse, &page_->optRow[1], &page_->cmdGo};
  user_->Focus(page_->txtName);
  page_.reset();
  for (const ui::Control* gone : keyed) {
    user_->Focus(*gone);
    user_->Type("1");
    user_->Press("Down");
  }
  user_->PasteByMenu("x");
  for (const ui::Control* gone : clicked) {
    user_->Click(*gone);
    user_->Press("Down");
  }
  for (const std::size_t i : {0U, 1U}) EXPECT_EQ(user_->See(*clicked[i]).check, ui::CheckState::Unchecked);
  user_->ShowMarks({});
  user_->UseLargeFont();
  user_->Hide();
  user_->ShowAgain();
}

TEST_F(Life, AModelOutlivesItsPage) {
  const Count lost(page_->txtName.FocusLost);
  user_->Focus(page_->txtName);
  user_->Close();
  EXPECT_EQ(lost.raised, 0);
  page_->txtName.SetText("x");
  page_->cboKind.SetItems({});
  page_->fraOuter.SetEnabled(false);
  page_->cmdGo.SetCaption("Gone");
  page_->cmdGo.SetFocus();
  EXPECT_TRUE(page_->cmdGo.HasFocus());
}

TEST_F(Life, AnActMayCloseThePage) {
  const auto close = [this] { user_->Close(); };
  const auto opened = [&](auto act) {
    if (!user_->IsOpen()) user_->Open(*page_, page_->Layout());
    act();
    EXPECT_FALSE(user_->IsOpen());
  };
  page_->cmdGo.Clicked.Connect(close);
  opened([this] { user_->Click(page_->cmdGo); });
  page_->chkUse.Changed.Connect(close);
  opened([this] { user_->Click(page_->chkUse); });
  page_->txtName.FocusLost.Connect(close);
  opened([this] {
    user_->Focus(page_->txtName);
    page_->txtTo.SetFocus();
  });
  page_->txtLines.SetKeyFilter([close](std::int16_t&) { close(); });
  opened([this] {
    user_->Focus(page_->txtLines);
    user_->Type("1");
  });
}

}  // namespace
}  // namespace kiv::test
