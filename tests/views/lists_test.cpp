#include "editor/antenna_choice_list.h"
#include "editor/dd_list_view.h"
#include "editor/dn_box.h"
#include "support/fake_host.h"
#include "views/view_test.h"

namespace kiv::test {
namespace {

struct ListPage : ui::Container {
  ListPage() : Container(nullptr, "page") {
    list.SetEntityType(EntityType::VcsCell);
    list.SetMultiSelect(true);
    list.SetUsePopupMenu(true);
    list.AddColumns({SystemColumn("System"), EcpColumn("ECP"), CellColumn("Cell")});
    list.Display();
    dn.SetText("5551234");
  }
  void Accept(ui::ControlVisitor&) override {}
  ui::LayoutItem Layout() {
    using namespace ui;
    return Column({Single(list), Single(choices), Form({Field("&DN:", {Single(dn.edit)})})});
  }

  XDDListView list{this, "list"};
  AntennaChoiceList choices{this, "choices"};
  XDnBox dn{this, "dn"};
};

struct MaskedHost : FakeHost {
  MaskedHost() { settings->general[host::kPhoneNumberMask] = "###-####"; }
};

/// The host is there before the page.
class Lists : public MaskedHost, public ViewTest<ListPage> {
 protected:
  using Cells = std::vector<std::string>;
  using Rows = std::vector<int>;
  Cells Shown() const { return user_->CellsOf(page_->list, 2); }
};

TEST_F(Lists, TakeDropsOfTheRegisteredFormatOnly) {
  dragSource->nodes = {{"Cell:1", 1, 2, 30, 1}, {"Cell:2", 1, 2, 4, 2}, {"Cell:3", 1, 2, 100, 3}};
  EXPECT_FALSE(user_->Drop(page_->list, "text/plain"));
  EXPECT_EQ(dragSource->formats.size(), 1U);  // a foreign format is not registered by asking
  EXPECT_TRUE(user_->Drop(page_->list, host::kConfigEntityTreeFormat));
  EXPECT_EQ(Shown(), (Cells{"30", "4", "100"}));
  EXPECT_TRUE(user_->Drop(page_->list, host::kConfigEntityTreeFormat));
  EXPECT_EQ(messages->shown.size(), 3U);  // each is there already
  page_->list.SetEnabled(false);
  EXPECT_FALSE(user_->Drop(page_->list, host::kConfigEntityTreeFormat));
}

TEST_F(Lists, SortAndSelectWithMouseAndKeys) {
  page_->list.DropNodes({{"Cell:1", 1, 2, 30, 1}, {"Cell:2", 1, 2, 4, 2}, {"Cell:3", 1, 2, 100, 3}});
  user_->ClickHeader(page_->list, 2);
  EXPECT_EQ(Shown(), (Cells{"4", "30", "100"}));
  EXPECT_EQ(user_->SortOf(page_->list, 2), ViewDriver::Sorted::Ascending);
  user_->ClickHeader(page_->list, 2);
  EXPECT_EQ(Shown(), (Cells{"100", "30", "4"}));
  EXPECT_EQ(user_->SortOf(page_->list, 2), ViewDriver::Sorted::Descending);
  user_->GoToRow(page_->list, 0);
  user_->Press(Key::Down, With::Shift);
  EXPECT_EQ(page_->list.SelectedRows(), (std::vector<std::size_t>{0, 2}));
  user_->ClickHeader(page_->list, 2);  // the selection stays with its rows
  EXPECT_EQ(user_->SelectedRowsOf(page_->list), (Rows{1, 2}));
  page_->list.SetMultiSelect(false);
  EXPECT_EQ(user_->SelectedRowsOf(page_->list).size(), 1U);
  page_->list.SetMultiSelect(true);
  user_->Press('A', With::Control);
  EXPECT_EQ(page_->list.SelectedRows().size(), 3U);
  user_->Press(Key::Delete);
  EXPECT_EQ(Shown(), Cells{});
}

TEST_F(Lists, ShowTheHostsArrowsInPlaceOfTheirOwn) {
  constexpr std::uint32_t kUp = 0xFF102030;
  page_->list.SetSortImages({std::make_shared<Image>(Image{2, 2, {kUp, kUp}}), nullptr});
  user_->ClickHeader(page_->list, 1);
  EXPECT_EQ(user_->PictureOf(page_->list, 1), kUp);
  EXPECT_EQ(user_->PictureOf(page_->list, 2), 0U);
  EXPECT_EQ(user_->SortOf(page_->list, 1), ViewDriver::Sorted::No);
  user_->ClickHeader(page_->list, 1);  // the host has no arrow down
  EXPECT_EQ(user_->PictureOf(page_->list, 1), 0U);
  EXPECT_EQ(user_->SortOf(page_->list, 1), ViewDriver::Sorted::Descending);
}

TEST_F(Lists, CheckBoxesShowTheChoiceOfTheModel) {
  AntennaChoiceList& choices = page_->choices;
  const auto cell = MakeCell(0, 1, 1, 2, 3);
  auto antennas = std::make_shared<EntityCollection>();
  for (const int number : {1, 2}) cell->AddAntenna(0, 1, 2, 3, number, number == 1);
  for (const auto& antenna : *cell->Antennas()) antennas->Add(antenna, antenna->Key());
  choices.AddColumns({SystemColumn("System"), EcpColumn("ECP")});
  choices.SetTheCollection(antennas);
  choices.SetCheckboxes(false);
  choices.Display();
  EXPECT_EQ(user_->ChecksOf(choices), (std::vector<bool>{false, false}));
  choices.SetCheckboxes(true);
  EXPECT_EQ(user_->ChecksOf(choices), (std::vector<bool>{true, false}));
  user_->GoToRow(choices, 1);
  user_->Press(Key::Space);
  EXPECT_EQ(user_->ChecksOf(choices), (std::vector<bool>{false, true}));  // the choice moved
}

TEST_F(Lists, AnswerEveryKeyWithoutRowsAndWithoutAModel) {
  const auto everyKey = [this](const ui::Control& list) {
    user_->Focus(list);
    user_->Press('C', With::Control);
    user_->Press('A', With::Control);
    for (const Key key : {Key::Down, Key::Up, Key::Home, Key::End, Key::Space, Key::Delete})
      user_->Press(key);
    user_->ClickHeader(list, 0);
    user_->Settle();
  };
  everyKey(page_->list);
  page_->list.DropNodes({{"Cell:1", 1, 2, 30, 1}, {"Cell:2", 1, 2, 4, 2}});
  user_->GoToRow(page_->list, 1);
  const ui::Control& gone = page_->list;
  page_.reset();
  user_->Resize(600, 500);  // paints it anew
  everyKey(gone);
  user_->Drop(gone, host::kConfigEntityTreeFormat);
}

TEST_F(Lists, AnActMayCloseThePage) {
  page_->list.DropNodes({{"Cell:1", 1, 2, 30, 1}, {"Cell:2", 1, 2, 4, 2}});
  page_->list.CollectionChanged.Connect([this] { user_->Close(); });
  user_->GoToRow(page_->list, 1);
  user_->Press(Key::Delete);
  EXPECT_FALSE(user_->IsOpen());
}

TEST_F(Lists, AMaskedBoxIsEditedAroundItsLiterals) {
  const ui::MaskedEdit& box = page_->dn.edit;
  EXPECT_EQ(user_->TextOf(box), "555-1234");
  user_->Focus(box);
  user_->PutCaret(4);
  user_->Press(Key::Backspace);  // behind the hyphen: the digit before it goes
  EXPECT_EQ(user_->TextOf(box), "551-234");
  user_->Type("9a8");
  EXPECT_EQ(user_->TextOf(box), "559-81234");
  user_->Press('A', With::Control);
  user_->Press(Key::Delete);
  EXPECT_EQ(page_->dn.Text(), "");
  user_->Type("5551234567");
  page_->dn.edit.SetFocus();
  page_->dn.edit.LoseFocus();
  EXPECT_EQ(user_->TextOf(box), "5551234567");
}

TEST_F(Lists, WhatComesPastTheKeysLeavesTheMaskItsOwnDigits) {
  settings->general[host::kPhoneNumberMask] = "1-###-####";
  page_->dn.SetText("5551234");
  user_->Focus(page_->dn.edit);
  EXPECT_EQ(user_->TextOf(page_->dn.edit), "1-555-1234");
  user_->Press('A', With::Control);
  user_->Press(Key::Delete);
  user_->PasteByMenu(" 666 4321\r\n");
  EXPECT_EQ(page_->dn.Text(), "6664321");
  user_->PutCaret(10);
  user_->Press(Key::Backspace);
  user_->PasteByMenu("7");
  EXPECT_EQ(page_->dn.Text(), "6664327");
}

}  // namespace
}  // namespace kiv::test
