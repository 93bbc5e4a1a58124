#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "base/error.h"
#include "base/utf16.h"
#include "ui/control_array.h"
#include "ui/control_visitor.h"
#include "ui/row_order.h"

namespace kiv::ui {
namespace {

struct Page : Container {
  Page() : Container(nullptr, "page") {}
  void Accept(ControlVisitor&) override {}

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
  EXPECT_EQ(page.FindControl("check(2)"), &page.checks[2]);
  EXPECT_EQ(page.FindControl("Box"), nullptr);
}

TEST(Controls, FocusIsRememberedInOnePlace) {
  Page page;
  std::string events;
  page.FocusChanged.Connect([&](Control& control) { events += "+" + control.Name(); });
  page.box.FocusLost.Connect([&] { events += "-box"; });
  page.box.SetFocus();
  page.list.SetFocus();
  EXPECT_TRUE(page.list.HasFocus());
  EXPECT_EQ(events, "+box-box+list");
  page.list.LoseFocus();
  EXPECT_EQ(page.FocusedControl(), nullptr);
}

TEST(Controls, TypingIsFilteredAndPastingIsNot) {
  Page page;
  int changes = 0;
  page.box.Changed.Connect([&] { ++changes; });
  page.box.SetKeyFilter([](std::int16_t& key) {
    if (key == 'x') key = 0;
  });
  page.box.Type("axb\b\b€\U0001F600\b");
  EXPECT_EQ(page.box.Text(), "€\uFFFD");  // a Backspace takes one UTF-16 unit
  page.box.SetText("1");
  const int before = changes;
  page.box.SetText("1");
  EXPECT_EQ(changes, before);
  page.box.Paste("x2");
  EXPECT_EQ(page.box.Text(), "1x2");
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
  EXPECT_EQ(page.list.ListIndex(), 1);
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
  options.Changed.Connect([&] {
    page.box.SetFocus();
    options.SetIndex(1);
  });
  options[1].Move(OptionButton::Direction::Back);
  EXPECT_EQ(options.Index(), 1);
  EXPECT_TRUE(page.box.HasFocus());  // a refusal leaves the focus where it sent it
}

TEST(Controls, AnAreaMayChangeWhatIsPasted) {
  Page page;
  TextArea area(&page, "area");
  area.SetKeyFilter([](std::int16_t& key) { key = key == 'x' ? std::int16_t{0} : key; });
  area.Type("ax\n");
  area.Paste("1,x");
  area.SetPasteFilter([](std::string_view text) { return "<" + std::string(text) + ">"; });
  area.Paste("x");
  EXPECT_EQ(area.Text(), "a\n1,x<x>");
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
