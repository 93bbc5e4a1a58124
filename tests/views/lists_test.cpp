#include "editor/antenna_choice_list.h"
#include "editor/dd_list_view.h"
#include "editor/dn_box.h"
#include "support/fake_host.h"
#include "views/view_test.h"

namespace kiv::test {
namespace {

struct ListPage : TestPage {
  ListPage() {
    list.SetEntityType(EntityType::VcsCell);
    list.SetMultiSelect(true);
    list.SetUsePopupMenu(true);
    list.AddColumns({SystemColumn("System"), EcpColumn("ECP"), CellColumn("Cell")});
    list.Display();
    dn.SetText("5551234");
  }
  ui::LayoutItem Layout() {
    using namespace ui;
    return Column({Single(list), Single(choices), Form({Field("&DN:", {Single(dn.edit)})})});
  }

  XDDListView list{this, "list"};
  AntennaChoiceList choices{this, "choices"};
  XDnBox dn{this, "dn"};
};

struct MaskedHost : FakeHost {
  MaskedHost() { settings->general[host::kPhoneNumberMask] = "1-###-####"; }
};

/// The host is there before the page.
class Lists : public MaskedHost, public ViewTest<ListPage> {
 protected:
  using Cells = std::vector<std::string>;
  using Rows = std::vector<int>;
  Cells Shown() const { return user_->SeeRows(page_->list).columns[2]; }
};

TEST_F(Lists, TakeDropsOfTheRegisteredFormatOnly) {
  dragSource->nodes = {{"Cell:1", 1, 2, 30, 1}, {"Cell:2", 1, 2, 4, 2}, {"Cell:3", 1, 2, 100, 3}};
  EXPECT_FALSE(user_->Drop(page_->list, "text/plain"));
  EXPECT_EQ(dragSource->formats.size(), 1U);  // a foreign format is not registered by asking
  EXPECT_TRUE(user_->Drop(page_->list, host::kConfigEntityTreeFormat));
  EXPECT_EQ(Shown(), (Cells{"30", "4", "100"}));
  page_->list.SetEnabled(false);
  EXPECT_FALSE(user_->Drop(page_->list, host::kConfigEntityTreeFormat));
}

TEST_F(Lists, SortAndSelectWithMouseAndKeys) {
  page_->list.DropNodes({{"Cell:1", 1, 2, 30, 1}, {"Cell:2", 1, 2, 4, 2}, {"Cell:3", 1, 2, 100, 3}});
  user_->ClickHeader(page_->list, 2);
  EXPECT_EQ(Shown(), (Cells{"4", "30", "100"}));
  EXPECT_EQ(user_->SeeRows(page_->list).sorted, std::pair(2, ui::SortDirection::Ascending));
  user_->ClickHeader(page_->list, 2);
  EXPECT_EQ(Shown(), (Cells{"100", "30", "4"}));
  EXPECT_EQ(user_->SeeRows(page_->list).sorted, std::pair(2, ui::SortDirection::Descending));
  user_->GoToRow(page_->list, 0);
  user_->Press("Shift+Down");
  EXPECT_EQ(page_->list.SelectedRows(), (std::vector<std::size_t>{0, 2}));
  user_->ClickHeader(page_->list, 2);  // the selection stays with its rows
  EXPECT_EQ(user_->SeeRows(page_->list).selected, (Rows{1, 2}));
  page_->list.SetMultiSelect(false);
  EXPECT_EQ(user_->SeeRows(page_->list).selected.size(), 1U);
  page_->list.SetMultiSelect(true);
  user_->Press("Ctrl+A");
  EXPECT_EQ(page_->list.SelectedRows().size(), 3U);
  user_->Press("Del");
  EXPECT_EQ(Shown(), Cells{});
}

TEST_F(Lists, ShowTheHostsArrowsInPlaceOfTheirOwn) {
  using Pictures = std::vector<std::uint32_t>;
  constexpr std::uint32_t kUp = 0xFF102030;
  page_->list.SetSortImages({std::make_shared<Image>(Image{2, 2, {kUp, kUp}}), nullptr});
  user_->ClickHeader(page_->list, 1);
  EXPECT_EQ(user_->SeeRows(page_->list).pictures, (Pictures{0, kUp, 0}));
  EXPECT_EQ(user_->SeeRows(page_->list).sorted.first, ui::ListView::kUnsorted);
  user_->ClickHeader(page_->list, 1);  // the host has no arrow down
  EXPECT_EQ(user_->SeeRows(page_->list).pictures, (Pictures{0, 0, 0}));
  EXPECT_EQ(user_->SeeRows(page_->list).sorted, std::pair(1, ui::SortDirection::Descending));
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
  EXPECT_EQ(user_->SeeRows(choices).checks, (std::vector<bool>{false, false}));
  choices.SetCheckboxes(true);
  EXPECT_EQ(user_->SeeRows(choices).checks, (std::vector<bool>{true, false}));
  user_->GoToRow(choices, 1);
  user_->Press("Space");
  EXPECT_EQ(user_->SeeRows(choices).checks, (std::vector<bool>{false, true}));  // the choice moved
}

TEST_F(Lists, AnswerEveryKeyWithoutRowsAndWithoutAModel) {
  const auto everyKey = [this](const ui::Control& list) {
    user_->Focus(list);
    for (const char* key : {"Ctrl+C", "Ctrl+A", "Down", "Up", "Home", "End", "Space", "Del"})
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
  user_->Press("Del");
  EXPECT_FALSE(user_->IsOpen());
}

TEST_F(Lists, AMaskedBoxIsEditedAroundItsLiteralsAndItsOwnDigits) {
  XDnBox& dn = page_->dn;
  const auto shown = [&] { return user_->See(dn.edit).text; };
  EXPECT_EQ(shown(), "1-555-1234");
  user_->Focus(dn.edit);
  user_->PutCaret(6);
  user_->Press("Backspace");  // behind the hyphen: the digit before it goes
  EXPECT_EQ(shown(), "1-551-234");
  user_->Type("9a8");
  EXPECT_EQ(shown(), "1-559-81234");
  user_->Press("Ctrl+A");
  user_->Press("Del");
  EXPECT_EQ(dn.Text(), "");
  user_->PasteByMenu(" 666 4321\r\n");
  EXPECT_EQ(dn.Text(), "6664321");
  user_->PutCaret(10);
  user_->Press("Backspace");
  user_->PasteByMenu("7");
  EXPECT_EQ(dn.Text(), "6664327");
  for (const auto& [committed, entered] : {std::pair{"1-777-8888", "7778888"}, {"1", "1"}}) {
    user_->Press("Ctrl+A");
    user_->Commit(committed);
    EXPECT_EQ(dn.Text(), entered);
  }
}

}  // namespace
}  // namespace kiv::test
