#include "ui/page_plan.h"
#include "views/sample_page.h"

namespace kiv::test {
namespace {

using Look = SampleView;
using Text = ViewDriver::Look;
using ui::CheckState;

TEST_F(Look, FollowsTheModel) {
  page_->txtName.SetText("Zürich");
  page_->txtLines.SetText("7\n8");
  page_->cboKind.SetListIndex(1);
  page_->chkUse.SetState(CheckState::Grayed);
  page_->fraInner.SetCaption("Nested");
  page_->lblNote.SetCaption("R&&D &note");
  page_->optRow.SetIndex(1);
  EXPECT_EQ(user_->See(page_->txtName).text, "Zürich");
  EXPECT_EQ(user_->See(page_->txtLines).text, "7\n8");
  EXPECT_EQ(user_->See(page_->txtArea).text, "");
  EXPECT_EQ(user_->See(page_->cboKind).text, "Large");
  EXPECT_EQ(user_->See(page_->chkUse).check, CheckState::Grayed);
  EXPECT_EQ(user_->See(page_->fraInner).text, "Nested");
  EXPECT_EQ(user_->See(page_->lblNote).text, "R&D note");
  EXPECT_EQ(user_->See(page_->optRow[1]).check, CheckState::Checked);

  page_->cboKind.SetItems({{"A"}, {"B"}, {"C"}});
  EXPECT_EQ(user_->See(page_->cboKind).text, "");
  page_->optRow.SetIndex(2);
  EXPECT_EQ(user_->See(page_->optRow[1]).check, CheckState::Unchecked);
}

TEST_F(Look, EnabledAndVisibleAreInheritedAndTakeTheTextsAlong) {
  page_->fraOuter.SetEnabled(false);
  page_->fraInner.SetEnabled(false);
  page_->fraOuter.SetEnabled(true);
  EXPECT_FALSE(user_->See(page_->txtFrom).enabled);
  EXPECT_TRUE(user_->See(page_->cboKind).enabled);
  page_->fraInner.SetEnabled(true);
  EXPECT_TRUE(user_->See(page_->txtFrom).enabled);

  page_->txtFrom.SetEnabled(false);
  EXPECT_FALSE(user_->See(page_->txtFrom).enabled);
  for (const char* text : {"From:", "to"}) EXPECT_EQ(user_->LookOfText(text), Text::Disabled) << text;
  EXPECT_TRUE(user_->See(page_->txtTo).enabled);
  page_->txtFrom.SetVisible(false);
  EXPECT_FALSE(user_->See(page_->txtFrom).visible);
  for (const char* text : {"From:", "to"}) EXPECT_EQ(user_->LookOfText(text), Text::Absent) << text;
  page_->fraOuter.SetVisible(false);
  page_->txtFrom.SetVisible(true);
  EXPECT_FALSE(user_->See(page_->fraOuter).visible);
  page_->fraOuter.SetVisible(true);
  EXPECT_TRUE(user_->See(page_->txtFrom).visible);
  EXPECT_EQ(user_->LookOfText("to"), Text::Disabled);

  user_->SetEnabled(false);
  page_->txtName.SetEnabled(false);
  page_->txtFrom.SetEnabled(true);
  user_->SetEnabled(true);
  EXPECT_FALSE(user_->See(page_->txtName).enabled);
  EXPECT_TRUE(user_->See(page_->txtFrom).enabled);
}

TEST_F(Look, NamesForScreenReadersAndScripts) {
  const std::pair<const ui::Control*, const char*> names[] = {
      {&page_->txtName, "Name"},   {&page_->txtCount, "Number of counts"},
      {&page_->cmdGo, "Go..."},    {&page_->chkUse, "Use it"},
      {&page_->cboKind, "Kind"},   {&page_->txtArea, "Area code"},
      {&page_->txtFrom, "From"},   {&page_->txtTo, "From to"},
      {&page_->fraOuter, "Outer"}, {&page_->optRow[1], "Row   1 Details"},
      {&page_->txtLines, "Lines"}};
  for (const auto& [control, name] : names) {
    EXPECT_EQ(user_->See(*control).name, name) << control->Name();
    EXPECT_EQ(user_->See(*control).id, control->Name());
  }
  page_->lblArea.SetCaption("&City:");
  page_->chkRow[1].SetCaption("Line");
  page_->cmdGo.SetCaption("S&top");
  EXPECT_EQ(user_->See(page_->txtArea).name, "City");
  EXPECT_EQ(user_->See(page_->optRow[1]).name, "Line Details");
  EXPECT_EQ(user_->See(page_->cmdGo).name, "Stop");
  EXPECT_FALSE(user_->Shows(*page_));
}

TEST_F(Look, LabelsShareOneWidthGridsAlignAndNumbersAreNarrow) {
  const int width = user_->PlaceOfText("Name:").width;
  for (const char* label : {"Number of counts:", "Kind:", "Area code:", "From:", "Lines:"}) {
    EXPECT_EQ(user_->PlaceOfText(label).width, width) << label;
  }
  for (std::size_t i = 1; i < 3; ++i) {
    EXPECT_EQ(user_->See(page_->lblRow[i]).place.x, user_->See(page_->lblRow[0]).place.x);
    EXPECT_GT(user_->See(page_->optRow[i]).place.y, user_->See(page_->optRow[i - 1]).place.y);
  }
  EXPECT_LT(user_->See(page_->txtCount).place.width * 2, user_->See(page_->txtName).place.width);
  EXPECT_LT(user_->See(page_->cboKind).place.width * 2, user_->See(page_->fraOuter).place.width);
  page_->lblArea.SetCaption("A much longer caption for the &city:");
  user_->Settle();
  EXPECT_GT(user_->See(page_->lblArea).place.width, width);
}

TEST_F(Look, NothingIsCutOffWithALargeFont) {
  user_->UseLargeFont();
  for (const auto* controls :
       {&page_->Children(), &page_->fraOuter.Children(), &page_->fraInner.Children()}) {
    for (const ui::Control* control : *controls) EXPECT_FALSE(user_->See(*control).cutOff) << control->Name();
  }
  EXPECT_FALSE(user_->Scrolls());
  user_->Resize(200, 120);
  EXPECT_TRUE(user_->Scrolls());
}

TEST_F(Look, MarksStandBesideTheirControlsAndMoveNothing) {
  const auto places = [this] {
    user_->Settle();
    std::vector<int> all;
    for (const ui::Control* control : page_->Children()) {
      const ui::Rect place = user_->See(*control).place;
      all.insert(all.end(), {place.x, place.y, place.width, place.height});
    }
    return all;
  };
  const auto before = places();
  user_->ShowMarks({{&page_->txtName, "no\r\nname"}, {&page_->chkUse, "use it"}, {&page_->txtName, "again"}});
  EXPECT_EQ(places(), before);
  EXPECT_EQ(user_->MarkIcons().size(), 2U);
  for (int i = 0; i < 2; ++i) {
    const ui::Rect icon = user_->MarkIcons().at("no\r\nname");
    EXPECT_GE(icon.x, user_->See(page_->txtName).place.Right() - 1);
    EXPECT_LE(icon.Right(), user_->See(page_->cmdGo).place.x);
    user_->Resize(700, 500);
  }
  EXPECT_EQ(user_->See(page_->txtName).tip, "no\r\nname");
  EXPECT_EQ(user_->See(page_->txtName).description, "no\r\nname");
  EXPECT_EQ(user_->LookOfText("no name (and 2 more problems)"), Text::Enabled);
}

TEST_F(Look, OtherMarksReplaceThemAndNoneClearsThem) {
  user_->ShowMarks({{&page_->txtName, "first"}, {&page_->txtTo, "second"}});
  user_->ShowMarks({{&page_->txtTo, "if <b>x</b>"}});
  EXPECT_EQ(user_->MarkIcons().size(), 1U);
  EXPECT_EQ(user_->LookOfText("if <b>x</b>"), Text::Enabled);
  EXPECT_EQ(user_->See(page_->txtTo).tip, "if <b>x</b>");
  EXPECT_EQ(user_->See(page_->txtName).tip, "");
  for (ui::Control* hidden : std::initializer_list<ui::Control*>{&page_->fraOuter, &page_->txtTo}) {
    hidden->SetVisible(false);
    EXPECT_TRUE(user_->MarkIcons().empty());
    hidden->SetVisible(true);
    EXPECT_EQ(user_->MarkIcons().size(), 1U);
  }
  user_->ShowMarks({});
  EXPECT_TRUE(user_->MarkIcons().empty());
  EXPECT_EQ(user_->LookOfText("if <b>x</b>"), Text::Absent);
  EXPECT_EQ(user_->See(page_->txtTo).description, "");

  // A control elsewhere is told below the page.
  const ui::TextBox elsewhere(page_.get(), "txtElsewhere");
  user_->ShowMarks({{&elsewhere, "missing"}, {&page_->cmdGo, "press me"}});
  EXPECT_EQ(user_->LookOfText("missing (and one more problem)"), Text::Enabled);
  EXPECT_EQ(user_->See(page_->cmdGo).tip, "press me");
}

}  // namespace
}  // namespace kiv::test
