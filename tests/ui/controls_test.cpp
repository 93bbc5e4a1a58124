#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "base/error.h"
#include "base/utf16.h"
#include "support/raised.h"
#include "support/test_page.h"
#include "ui/control_array.h"
#include "ui/control_visitor.h"
#include "ui/row_order.h"

namespace kiv::ui {
namespace {

struct Page : test::TestPage {
  Frame frame{this, "frame"};
  TextBox box{&frame, "box"};
  ControlArray<CheckBox, 3> checks{&frame, "check"};
  ComboBox list{this, "list"};
};

TEST(Controls, AFrameDisablesAndHidesWhatItHolds) {
  Page page;
  int looks = 0;
  page.box.AppearanceChanged.Connect([&] { ++looks; });
  page.frame.SetEnabled(false);
  EXPECT_FALSE(page.box.Enabled());
  EXPECT_EQ(looks, 1);
  page.box.Type("x");
  page.checks[0].Click();
  page.box.SetFocus();
  EXPECT_EQ(page.box.Text(), "");
  EXPECT_FALSE(page.checks[0].Checked());
  EXPECT_EQ(page.FocusedControl(), nullptr);
  page.frame.SetEnabled(true);
  page.SetVisible(false);
  EXPECT_FALSE(page.box.Visible());
  page.box.SetText("the program still can");
  EXPECT_EQ(page.box.Text(), "the program still can");
}

TEST(Controls, AreFoundByNameAtAnyDepth) {
  Page page;
  EXPECT_EQ(page.FindControl("box"), &page.box);
  EXPECT_EQ(page.FindControl("Check(2)"), &page.checks[2]);
  EXPECT_EQ(page.FindControl("check(3)"), nullptr);
  EXPECT_EQ(test::NumberRaisedBy([&page] { page.checks[3].Click(); }), ErrorNumber::InvalidArgument);
}

TEST(Controls, FocusLeavesWhatIsOutOfReach) {
  Page page;
  for (const bool hides : {false, true}) {
    page.box.SetFocus();
    hides ? page.frame.SetVisible(false) : page.frame.SetEnabled(false);
    EXPECT_EQ(page.FocusedControl(), nullptr);
    page.frame.SetEnabled(true);
  }
  page.list.SetFocus();
  page.list.LoseFocus(FocusTo::DropDownList);
  page.list.LoseFocus(FocusTo::AnotherWindow);
  EXPECT_TRUE(page.list.HasFocus());
  page.list.LoseFocus();
  EXPECT_FALSE(page.list.HasFocus());
}

TEST(Controls, TypingIsFilteredAndPastingIsNot) {
  Page page;
  int changes = 0;
  page.box.Changed.Connect([&] { ++changes; });
  page.box.SetKeyFilter([](std::int16_t& key) {
    if (key == 'x') key = 0;
  });
  page.box.Type("axb\b\b€\U0001F600\b");
  EXPECT_EQ(page.box.Text(), "€");  // a Backspace takes a whole character
  page.box.SetText("1");
  const int before = changes;
  page.box.SetText("1");
  EXPECT_EQ(changes, before);
  page.box.Paste("x\r\n2\n");
  EXPECT_EQ(page.box.Text(), "1x 2");
}

TEST(Controls, ListsRaiseWhenTheSelectionChanges) {
  Page page;
  int changes = 0;
  page.list.Changed.Connect([&] { ++changes; });
  page.list.SetItems({{"a", 1}, {"b", 2}});
  page.list.Select(1);
  page.list.Select(1);
  EXPECT_EQ(changes, 1);
  EXPECT_THROW(page.list.SetListIndex(2), Error);
  EXPECT_THROW(page.list.SetItems({{"c", 3}}, 1), Error);
  EXPECT_EQ(page.list.ListIndex(), 1);
  EXPECT_EQ(page.list.Items().size(), 2U);
  page.list.SetItems({});
  EXPECT_EQ(page.list.ListIndex(), kNoSelection);
  EXPECT_EQ(changes, 2);
}

TEST(Controls, AtMostOneOptionIsChosen) {
  Page page;
  OptionGroup<3> options(&page, "option");
  std::string events;
  options.Changed.Connect([&] { events += std::to_string(options.Index()); });
  options[1].Changed.Connect([&] { events += options[1].Chosen() ? '+' : '-'; });
  EXPECT_EQ(options.Index(), kNoSelection);
  EXPECT_TRUE(options[0].IsTabStop());
  options[1].Click();
  options[1].Click();
  EXPECT_TRUE(options[1].IsTabStop() && !options[0].IsTabStop());
  options.SetIndex(2);
  EXPECT_EQ(events, "+1-2");
  EXPECT_EQ(page.FindControl("option(1)"), &options[1]);
  options[0].SetEnabled(false);
  options[0].Click();
  EXPECT_EQ(options.Index(), 2);
  EXPECT_THROW(options.SetIndex(3), Error);

  options[2].Move(OptionButton::Direction::Forward);  // around the end, past the disabled one
  EXPECT_EQ(options.Index(), 1);
  EXPECT_TRUE(options[1].HasFocus());
}

TEST(Controls, ACaretAndASelectionStandBetweenCharacters) {
  Page page;
  TextBox& box = page.box;
  box.SetText("a\U0001F600c");
  box.Select(1, 2);  // inside a character: before it
  EXPECT_EQ(box.AnchorPosition(), 1U);
  EXPECT_EQ(box.CaretPosition(), 1U);
  box.Type("b");
  EXPECT_EQ(box.Text(), "ab\U0001F600c");
  box.Delete();
  box.Backspace();
  EXPECT_EQ(box.Text(), "ac");
  box.SetText("long ac");  // the caret stays where it was, seen from the end
  EXPECT_EQ(box.CaretPosition(), 6U);
  box.Select(7, 0);
  box.Paste("x");
  EXPECT_EQ(box.Text(), "x");
  box.Edit("x\nyz", 3);
  EXPECT_EQ(box.Text(), "x yz");
  EXPECT_EQ(box.CaretPosition(), 3U);
}

TEST(Controls, AListAnswersEveryIndex) {
  struct Rows : ListRows {
    std::size_t Count() const override { return 2; }
    std::string Text(std::size_t row, std::size_t column) const override {
      return std::to_string(row) + "-" + std::to_string(column);
    }
    std::int64_t Number(std::size_t row, std::size_t) const override {
      return static_cast<std::int64_t>(row);
    }
    bool Checked(std::size_t) const override { return true; }
  };
  Page page;
  ListView list(&page, "list");
  int looks = 0;
  list.AppearanceChanged.Connect([&] { ++looks; });
  for (const bool filled : {false, true}) {
    if (filled) {
      list.SetColumns({{"one"}});
      list.SetRows(std::make_shared<Rows>());
    }
    EXPECT_EQ(list.Text(filled ? 2 : 0, 0), "");
    EXPECT_EQ(list.Text(0, 1), "");
    EXPECT_FALSE(list.Checked(2));
    EXPECT_THROW(list.RowAt(2), Error);
    EXPECT_THROW(list.SetSelectedRows({2}), Error);
    EXPECT_THROW(list.SortBy(1, SortDirection::Ascending), Error);
    EXPECT_THROW(list.SortBy(-2, SortDirection::Ascending), Error);
    EXPECT_EQ(list.SortColumn(), ListView::kUnsorted);
  }
  list.SetMultiSelect(true);
  list.SetCheckboxes(true);
  list.SetMenuItems({"Remove"});
  EXPECT_EQ(looks, 3);
  list.SetSelectedRows({1, 0, 1});
  EXPECT_EQ(list.SelectedRows(), (std::vector<std::size_t>{0, 1}));
  list.SetMultiSelect(false);
  EXPECT_EQ(list.SelectedRows(), std::vector<std::size_t>{0});
}

TEST(Controls, AMaskKeepsItsOwnDigits) {
  Page page;
  MaskedEdit box(&page, "box");
  box.SetMask("1-### (##)");
  box.SetText("55566");
  EXPECT_EQ(box.Text(), "1-555 (66)");
  const std::tuple<const char*, std::size_t, const char*> edits[] = {{"1-555 (667)", 10, "555667"},
                                                                     {"1-5595 (66)", 6, "559566"},
                                                                     {"41-555 (66)", 1, "455566"},
                                                                     {"1-5 (66)", 3, "566"},
                                                                     {"", 0, ""},
                                                                     {"1-555 (66", 9, "55566"},
                                                                     {"1-555 66)", 6, "55566"},
                                                                     {"1-777 (88)", 10, "77788"},
                                                                     {"1-7771-555 (66)", 5, "77755566"}};
  for (const auto& [edited, caret, entered] : edits) {
    box.SetText("55566");
    box.Edit(edited, caret);
    EXPECT_EQ(box.ClipText(), entered) << edited;
  }
  for (const auto& [pasted, entered] : {std::pair{"777 (88)", "77788"}, {"1-77", "77"}, {"1777", "1777"}}) {
    box.Select(0, box.Text().size());
    box.Paste(pasted);
    EXPECT_EQ(box.ClipText(), entered) << pasted;
  }
  box.SetText("55566");
  box.SetMask({});
  box.Paste(" a\nb \n");
  EXPECT_EQ(box.Text(), "55566a b");
}

TEST(RowOrder, IsThatOfWholeTextsHoweverLongTheyAreAlike) {
  std::vector<std::string> texts;
  for (const std::size_t alike : {0U, 7U, 8U, 9U, 63U, 64U, 65U, 200U}) {
    for (const char* end : {"b", "", "caf\xC3\xA9", "b", "a", "A"})
      texts.push_back(std::string(alike, 'x') + end);
  }
  for (const SortDirection direction : {SortDirection::Ascending, SortDirection::Descending}) {
    std::vector<std::uint32_t> expected(texts.size());
    std::iota(expected.begin(), expected.end(), 0U);
    std::vector<std::uint32_t> rows(expected.rbegin(), expected.rend());
    std::ranges::stable_sort(expected, [&](std::uint32_t left, std::uint32_t right) {
      return direction == SortDirection::Ascending ? texts[left] < texts[right] : texts[left] > texts[right];
    });
    SortRows(rows, direction, [&](std::uint32_t row) { return texts[row]; });
    EXPECT_EQ(rows, expected);
  }
}

TEST(Utf16, RoundTripsAndRepairs) {
  const std::string text = "aé€\U0001F600";
  EXPECT_EQ(ToUtf8(ToUtf16(text)), text);
  EXPECT_EQ(CharacterCount(text), 5U);
  for (const char* broken : {"\xFF", "\xC0\x80", "\xE2\x82", "\xED\xA0\x80", "\xF5\x80\x80\x80"}) {
    for (const char16_t unit : ToUtf16(broken)) EXPECT_EQ(unit, 0xFFFD) << broken;
  }
}

}  // namespace
}  // namespace kiv::ui
