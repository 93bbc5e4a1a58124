#include "vcsa/vcs_data.h"

#include <gtest/gtest.h>

#include "core/study_data.h"
#include "core/study_kinds.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

class VcsaRecord : public ::testing::Test {
 protected:
  void Fill() {
    std::array<std::string, CKivVcsData::kTexts> texts;
    texts.fill("N");
    texts[0] = "/d";
    texts[1] = "v.vcs";
    texts[2] = "Y";   // event A
    texts[14] = "Y";  // event M
    texts[15] = "555";
    data_.Initialize(9, texts);
    data_.AddCell(11, 1, 2, 37);
    data_.AddCell(12, 1, 2, 38);
    CCell& cell = AsCell(data_.Cells()->Item("Cell:11"));
    cell.AddAntenna(912, 1, 2, 37, 4, true);
    cell.AddCarrier(0, "1", "2", "37", "5", false);
  }

  test::FakeHost host_;
  CKivVcsData data_;
};

TEST_F(VcsaRecord, InsertAndUpdateWriteTheRowAndTheListsInOrder) {
  Fill();
  EXPECT_TRUE(data_.InsertNew());
  const std::vector<std::string> lists = {
      "INSERT INTO KIV_Cell_List (kiv_list_id, InstanceId, SystemId, EcpId, CellId) VALUES (9, 11, 1, 2, 37)",
      "INSERT INTO KIV_Antenna_List (kiv_list_id, InstanceId, SystemId, EcpId, CellId, AntennaId, Selected) "
      "VALUES "
      "(9, 912, 1, 2, 37, 4, 'Y')",
      "INSERT INTO KIV_Carrier_List (kiv_list_id, InstanceId, SystemId, EcpId, CellId, CarrierId, Selected) "
      "VALUES "
      "(9, 0, 1, 2, 37, 5, 'N')",
      "INSERT INTO KIV_Cell_List (kiv_list_id, InstanceId, SystemId, EcpId, CellId) VALUES (9, 12, 1, 2, "
      "38)"};
  std::vector<std::string> expected = {
      "INSERT INTO KIV_VcsStudy (ID, Path, DataFile, EventA, EventB, EventC, EventD, EventE, EventF, EventG, "
      "EventH, "
      "EventI, EventJ, EventK, EventL, EventM, SingleDn, DirectionalSetup, CarrierData) VALUES (9, '/d', "
      "'v.vcs', "
      "'Y', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'Y', '555', 'N', 'N')"};
  expected.insert(expected.end(), lists.begin(), lists.end());
  EXPECT_EQ(host_.database->statements, expected);

  host_.database->statements.clear();
  data_.Update();
  expected = {
      "UPDATE KIV_VcsStudy SET Path = '/d', DataFile = 'v.vcs', EventA = 'Y', EventB = 'N', EventC = 'N', "
      "EventD = "
      "'N', EventE = 'N', EventF = 'N', EventG = 'N', EventH = 'N', EventI = 'N', EventJ = 'N', EventK = "
      "'N', EventL "
      "= 'N', EventM = 'Y', SingleDn = '555', DirectionalSetup = 'N', CarrierData = 'N' WHERE Id = 9",
      "Delete From KIV_Antenna_List Where KIV_List_ID=9", "Delete From KIV_Carrier_List Where KIV_List_ID=9",
      "Delete From KIV_Cell_List Where KIV_List_ID=9"};
  expected.insert(expected.end(), lists.begin(), lists.end());
  EXPECT_EQ(host_.database->statements, expected);
  EXPECT_TRUE(host_.database->columnQuestions.empty());  // this table has no optional columns
}

TEST_F(VcsaRecord, ALoadGoesOnToTheListsWhateverTheRow) {
  host_.database
      ->answers["SELECT * FROM KIV_Cell_List WHERE KIV_List_Id = 9 ORDER BY SystemId, EcpId, CellId"] = {
      {"KIV_LIST_ID", "INSTANCEID", "SYSTEMID", "ECPID", "CELLID"}, {{9, 11, 1, 2, 37}}};
  data_.SetID(9);
  data_.GetData(9);
  EXPECT_EQ(data_.Path(), "");
  EXPECT_EQ(AsCell(data_.Cells()->Item("Cell:11")).CellID(), 37);
  EXPECT_EQ(host_.database->queries.size(), 4U);
  EXPECT_THROW(data_.GetData(9), Error);  // the same cell once more

  CKivVcsData other;
  host_.database->noResultSet = true;
  other.GetData(9);
  EXPECT_EQ(host_.errors->reports,
            std::vector<std::string>{
                "VCSA Study|MSQL|LoadVcsData|Unable to load study types data from KIV_VcsStudy"});
}

TEST_F(VcsaRecord, ReportsARowThatWasNotWritten) {
  Fill();
  host_.database->failure = "locked";
  EXPECT_FALSE(data_.InsertNew());
  EXPECT_EQ(host_.errors->reports.front(), "VCSA Study|MSQL|InsertVcsData|locked");
  data_.ClearCells();
  EXPECT_THROW(data_.AddCell(1, 1, 1, 1), Error);
}

}  // namespace
}  // namespace kiv
