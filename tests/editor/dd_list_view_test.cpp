#include "editor/antenna_choice_list.h"

#include <gtest/gtest.h>

#include "support/fake_host.h"
#include "support/test_page.h"

namespace kiv {
namespace {

host::DraggedNode Cell(std::int32_t instance, std::int32_t ecp, std::int32_t cell) {
  return {"Cell:" + std::to_string(instance), 1, ecp, cell, instance};
}
host::DraggedNode Ecp(std::int32_t instance, std::int32_t ecp) {
  return {"Ecp:" + std::to_string(instance), 1, ecp, 0, instance};
}

class DropList : public ::testing::Test {
 protected:
  DropList() {
    list_.AddColumns({SystemColumn("System"), EcpColumn("ECP"), CellColumn("Cell")});
    list_.EntityAdded.Connect([this](const auto& entity) { events_ += "+" + entity->Key(); });
    list_.EntityRemoved.Connect([this](const auto& entity) { events_ += "-" + entity->Key(); });
    list_.CollectionChanged.Connect([this] { events_ += "!"; });
  }
  void Accepts(EntityType type, std::int32_t maxRows) {
    list_.SetEntityType(type);
    list_.SetMaxRows(maxRows);
  }
  /// Drops nodes as a user does; returns what was refused.
  std::string Drop(std::vector<host::DraggedNode> nodes) {
    host_.dragSource->nodes = std::move(nodes);
    list_.Drop({{7, 49161}});
    return host_.TakeMessage();
  }
  std::string Shown() const {
    std::string text;
    for (std::size_t i = 0; i < list_.RowCount(); ++i) text += list_.Text(i, 2) + " ";
    return text;
  }

  test::FakeHost host_;
  test::TestPage page_;
  XDDListView list_{&page_, "dlvw"};
  std::string events_;
};

TEST_F(DropList, TakesOnlyTheTreesFormatAndTheExpectedType) {
  Accepts(EntityType::RfcCell, 8);
  EXPECT_TRUE(host_.dragSource->formats.empty());  // a list can be made without a host
  EXPECT_FALSE(list_.OffersDrop({{7}}));
  EXPECT_EQ(host_.dragSource->formats, std::vector<std::string>{"ConfigEntityTreeClipboardFormat"});
  list_.Drop({{7}});
  EXPECT_EQ(Drop({}), "");
  EXPECT_EQ(Drop({Ecp(9, 2)}), "You have dropped the wrong element type. \r\nExpected element type: Cell");
  host::DraggedNode early = Cell(1, 2, 3);
  early.key = "c:1";
  EXPECT_NE(Drop({early}), "");
  Accepts(EntityType::Ecp, 0);
  EXPECT_EQ(Drop({Cell(1, 2, 3)}), "You have dropped the wrong element type. \r\nExpected element type: ECP");
  Accepts(EntityType::None, 0);
  EXPECT_EQ(Drop({Cell(1, 2, 3)}),
            "You have dropped the wrong element type. \r\nExpected element type: Unknown");
  EXPECT_EQ(events_, "");
}

TEST_F(DropList, AnEcpIsRefusedTwiceAndBesideAnother) {
  Accepts(EntityType::Ecp, 1);
  EXPECT_EQ(Drop({Ecp(9, 2)}), "");
  EXPECT_EQ(
      Drop({Ecp(9, 2), Ecp(8, 3)}),
      "ECP 1-2 is already in the list and will not be added."
      "You have attempted to add more than 1 ECP.\r\nRF Call Trace studies must be initiated from a sinlge "
      "ECP.\r\nThe ECP has not been added to the list.");
  EXPECT_EQ(events_, "+Ecp:9!");
  EXPECT_EQ(list_.TheCollection()->Count(), 1);
}

TEST_F(DropList, VcsaCellsAreLimitedForEachEcp) {
  Accepts(EntityType::VcsCell, 2);
  const std::string limit =
      "You have attempted to drop more than 2 cells from ECP 2\r\n"
      "VCSA engineering guide lines recommend that no more than 2 cells \r\n"
      "from the same ECP be studied at the same time. The cells \r\nhave not been added to the list.";
  EXPECT_EQ(Drop({Cell(1, 2, 30), Cell(2, 2, 4), Cell(3, 2, 5), Cell(4, 3, 6)}), limit);
  EXPECT_EQ(Shown(), "30 4 ");  // what came before the refusal stays, what came behind it is not looked at
  EXPECT_EQ(Drop({Cell(1, 2, 30)}), "Cell 1-2-30 is already in the list and will not be added.");
  EXPECT_EQ(Drop({Cell(4, 3, 6)}), "");
  list_.SetMaxRows(0);
  EXPECT_EQ(Drop({Cell(3, 2, 5)}), "");
  EXPECT_EQ(events_, "+Cell:1+Cell:2!+Cell:4!+Cell:3!");
}

TEST_F(DropList, RfcCellsStayBelowTheLimitAndOnOneEcp) {
  Accepts(EntityType::RfcCell, 3);
  EXPECT_EQ(Drop({Cell(1, 2, 3), Cell(2, 2, 4), Cell(3, 2, 5)}),
            "You have attempted to drop more than 3 cells for this study.\r\nNo more than 3 cells can be "
            "studied at the same time. \r\nThe cells have not been added to the list.");
  EXPECT_EQ(list_.TheCollection()->Count(), 2);
  list_.SetMaxRows(8);
  EXPECT_EQ(Drop({Cell(4, 3, 6)}),
            "All cells for a RF Call Trace study must belong to the same ECP.\r\n"
            "The cells have not been added to the list.");
}

TEST_F(DropList, SortsNumbersByValueAndRemovesWhatIsSelected) {
  Accepts(EntityType::VcsCell, 0);
  list_.SetMultiSelect(true);
  EXPECT_FALSE(list_.UsePopupMenu());
  list_.SetUsePopupMenu(true);
  EXPECT_TRUE(list_.UsePopupMenu());
  Drop({Cell(1, 2, 30), Cell(2, 2, 4), Cell(3, 2, 100)});
  list_.ClickHeader(2);
  EXPECT_EQ(Shown(), "4 30 100 ");
  list_.ClickHeader(2);
  EXPECT_EQ(Shown(), "100 30 4 ");
  list_.SelectPositions({0, 2});
  events_.clear();
  list_.ChooseMenuItem(0);
  EXPECT_EQ(events_, "-Cell:2-Cell:3!");
  EXPECT_EQ(Shown(), "30 ");
  list_.ChooseMenuItem(2);
  EXPECT_EQ(list_.SelectedRows().size(), 1U);
  list_.ChooseMenuItem(1);
  EXPECT_EQ(list_.TheCollection()->Count(), 0);
  list_.ClearDisplay();
  EXPECT_EQ(list_.RowCount(), 0U);
}

TEST_F(DropList, IsSortedAsItsHostSays) {
  Accepts(EntityType::VcsCell, 0);
  Drop({Cell(1, 2, 30), Cell(2, 2, 4)});
  EXPECT_EQ(list_.SortOptions().column, ui::ListView::kUnsorted);
  EXPECT_EQ(list_.SortImage(), nullptr);  // the host has none
  list_.SetSortOptions({2, ui::SortDirection::Descending});
  EXPECT_EQ(Shown(), "30 4 ");
  list_.SetSortOptions({});
  EXPECT_EQ(list_.SortOptions(), (SortSettings{0, ui::SortDirection::Ascending})) << "by the default column";
  EXPECT_THROW(list_.SetSortOptions({3}), Error);

  const auto up = std::make_shared<Image>();
  const auto down = std::make_shared<Image>();
  host_.images->images = {{101, up}, {102, down}};
  XDDListView other(&page_, "other");
  other.AddColumns({SystemColumn("System")});
  EXPECT_EQ(other.SortImage(), nullptr);
  other.ClickHeader(0);
  EXPECT_EQ(other.SortImage(), up);
  other.ClickHeader(0);
  EXPECT_EQ(other.SortImage(), down);
}

TEST_F(DropList, ListAndCollectionAgreeWhateverARemovalMeets) {
  Accepts(EntityType::VcsCell, 0);
  list_.SetMultiSelect(true);
  Drop({Cell(1, 2, 30), Cell(2, 2, 4), Cell(3, 2, 100)});
  const auto others = std::make_shared<EntityCollection>();
  for (const int cell : {4, 5}) others->Add(MakeCell(0, cell == 4 ? 2 : 5, 1, 2, cell));
  list_.SetTheCollection(others);  // and not shown yet
  list_.SelectPositions({0, 1});
  list_.RemoveSelected();
  EXPECT_EQ(Shown(), "5 ");
  EXPECT_EQ(others->Count(), 1);

  Drop({Cell(6, 2, 6)});
  events_.clear();
  Connection failing = list_.EntityRemoved.Connect(
      [](const auto&) { throw Error(ErrorNumber::ObjectNotSet, "nobody to tell"); });
  EXPECT_THROW(list_.RemoveAll(), Error);
  EXPECT_EQ(Shown(), "6 ");
  EXPECT_EQ(others->Count(), 1);
  EXPECT_EQ(events_, "-Cell:5!") << "the host has to know of what is gone";
}

TEST_F(DropList, AnEntityThatCannotBeCompletedIsNotAdded) {
  Accepts(EntityType::VcsCell, 0);
  int changes = 0;
  list_.CollectionChanged.Connect([&changes] { ++changes; });
  list_.EntityAdded.Connect([](const auto& cell) {
    if (AsCell(cell).CellID() == 4) throw Error(ErrorNumber::DatabaseFailure, "no configuration");
  });
  EXPECT_THROW(Drop({Cell(1, 2, 3), Cell(2, 2, 4), Cell(3, 2, 5)}), Error);
  EXPECT_EQ(list_.TheCollection()->Count(), 1);
  EXPECT_EQ(changes, 1) << "the cell before the failing one is there, which the host has to know";
}

TEST_F(DropList, ACellHasOneChosenAntenna) {
  const auto first = MakeCell(0, 1, 1, 2, 3);
  const auto second = MakeCell(0, 2, 1, 9, 3);  // its namesake on another ECP
  auto antennas = std::make_shared<EntityCollection>();
  for (const auto& cell : {first, second}) {
    for (const int antenna : {1, 2}) {
      cell->AddAntenna(0, 1, cell->EcpID(), 3, antenna, antenna == 1);
    }
    for (const auto& antenna : *cell->Antennas()) antennas->Add(antenna, antenna->Key());
  }
  AntennaChoiceList list(&page_, "antennas");
  int changes = 0;
  list.CollectionChanged.Connect([&changes] { ++changes; });
  list.SetTheCollection(antennas);
  list.Display();
  const auto checked = [&list] {
    std::string text;
    for (std::size_t i = 0; i < list.RowCount(); ++i) text += list.Checked(i) ? 'x' : '-';
    return text;
  };
  EXPECT_EQ(checked(), "x-x-");
  list.ClickCheckBox(1);
  EXPECT_EQ(checked(), "-xx-");
  list.ClickCheckBox(1);
  EXPECT_EQ(checked(), "--x-");
  EXPECT_EQ(changes, 2);
}

}  // namespace
}  // namespace kiv
