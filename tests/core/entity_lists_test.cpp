#include "core/entity_lists.h"

#include <gtest/gtest.h>

#include "support/fake_host.h"

namespace kiv {
namespace {

class EntityLists : public ::testing::Test {
 protected:
  void Answer(const std::string& query, std::vector<std::string> names,
              std::vector<std::vector<Variant>> rows) {
    host_.database->answers[query] = {std::move(names), std::move(rows)};
  }

  test::FakeHost host_;
  std::shared_ptr<CCell> cell_ = MakeCell(7, 4711, 1, 2, 37);
};

TEST_F(EntityLists, KeysComeFromTheInstanceOrThePath) {
  EXPECT_EQ(cell_->Key(), "Cell:4711");
  EXPECT_EQ(MakeEcp(7, 12, 1, 2)->Key(), "Ecp:12");
  cell_->AddAntenna(0, 1, 2, 37, 3, true);
  cell_->AddAntenna(0, 1, 2, 37, 3, false);  // there already
  cell_->AddAntenna(912, 1, 2, 37, 4, false);
  cell_->AddCarrier(0, "1", "2", "037", "5", true);
  EXPECT_EQ(cell_->Antennas()->Count(), 2);
  EXPECT_TRUE(cell_->Antennas()->Item("Antenna:1-2-37-3")->Selected());
  EXPECT_EQ(cell_->Antennas()->Item("Antenna:912")->ID(), 7);
  EXPECT_EQ(cell_->Carriers()->Item("Carrier:1-2-037-5")->CellID(), 37);
  EXPECT_THROW(cell_->AddCarrier(0, "1", "2", "37", "x", true), Error);
}

TEST_F(EntityLists, RemovingKeepsWhatIsThereAndClearingUnsets) {
  cell_->AddAntenna(912, 1, 2, 37, 4, false);
  cell_->RemoveAntenna("Antenna:912");
  EXPECT_EQ(cell_->Antennas()->Count(), 1);
  EXPECT_THROW(cell_->RemoveAntenna("Antenna:1"), Error);
  cell_->ClearAntennas();
  EXPECT_THROW(cell_->AddAntenna(1, 1, 2, 37, 4, false), Error);
  EXPECT_THROW(cell_->InsertAntennas(7), Error);
}

TEST_F(EntityLists, FailuresOfInsertsAreReported) {
  cell_->AddAntenna(1, 1, 2, 37, 1, true);
  cell_->AddAntenna(2, 1, 2, 37, 2, true);
  host_.database->failure = "disk full";
  EXPECT_FALSE(cell_->InsertAntennas(7));
  EXPECT_EQ(host_.errors->reports, (std::vector<std::string>{"disk full", "disk full"}));
}

TEST_F(EntityLists, ListsAreLoadedCellByCell) {
  EntityCollection cells;
  cells.Add(cell_, cell_->Key());
  Answer("SELECT * FROM KIV_Antenna_List WHERE KIV_List_Id = 7 AND CellId = 37 ORDER BY AntennaId",
         {"KIV_LIST_ID", "INSTANCEID", "SYSTEMID", "ECPID", "CELLID", "ANTENNAID", "SELECTED"},
         {{7, 912, 1, 2, 37, 4, "Y"}, {7, 913, 1, 2, 37, 5, "y"}});
  Answer("SELECT * FROM KIV_Carrier_List WHERE KIV_List_Id = 7 AND CellId = 37 ORDER BY CarrierId",
         {"InstanceId", "SystemId", "EcpId", "CellId", "CarrierId", "Selected"},
         {{0, 1, 2, 37, 5, "Y"}, {0, "01", 2.0, "37.0", " 5", "N"}});  // told in other ways, the same one
  MSQL::LoadAntennaList(7, cells);
  MSQL::LoadCarrierList(7, cells);
  EXPECT_TRUE(cell_->Antennas()->Item("Antenna:912")->Selected());
  EXPECT_FALSE(cell_->Antennas()->Item("Antenna:913")->Selected());
  EXPECT_EQ(cell_->Carriers()->Count(), 1);
  EXPECT_TRUE(cell_->Carriers()->Item("Carrier:1-2-37-5")->Selected());
  EXPECT_EQ(host_.database->timeouts, (std::vector<int>{60, 60}));
}

TEST_F(EntityLists, TheConfigurationIsAskedForAntennasAndCarriers) {
  const std::string carriers =
      "SELECT cdma_carr_id FROM luc_cfg_cdma_car_chans "
      "WHERE system_id=1 AND ecp=2 AND cell=37 ORDER BY keyid";
  Answer(
      "SELECT Instance_Id, rfpi FROM luc_cfg_ceqsu2 "
      "WHERE dsetup='y' AND system_id=1 AND ecp=2 AND cell=37 ORDER BY rfpi",
      {"Instance_Id", "rfpi"}, {{912, 4}, {912, 4}});
  Answer(carriers, {"cdma_carr_id"}, {{5}, {"05"}, {1e6}});
  MSQL::LookupConfigAntennas(*cell_);
  MSQL::LookupConfigCarriers(*cell_);
  EXPECT_EQ(cell_->Antennas()->Item("Antenna:912")->AntennaID(), 4);
  EXPECT_EQ(cell_->Carriers()->Count(), 2);
  EXPECT_EQ(cell_->Carriers()->Item("Carrier:1-2-37-1000000")->CarrierID(), 1'000'000);
  EXPECT_EQ(host_.database->queries.back(), carriers);  // those of its CGSA only when it has none of its own
  Answer("select * from vzn_instance_context where context_id=2 and fullkey='1-2-37'", {"ParentInstance_Id"},
         {{88}, {99}});
  EXPECT_EQ(MSQL::GetParentInstanceId("1-2-37"), 88);
}

}  // namespace
}  // namespace kiv
