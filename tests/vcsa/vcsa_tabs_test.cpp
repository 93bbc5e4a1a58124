#include "support/tab_test.h"
#include "support/temp_folder.h"
#include "vcsa/detail_tab.h"
#include "vcsa/general_tab.h"

namespace kiv {
namespace {

/// A network of two cells: a CDMA one and a TDMA one.
void FillNetwork(test::FakeDatabase& database) {
  database.functions["lucent_generic.find_cell_tech"] = {{"11", "AMPS/CDMA"}, {"12", "TDMA"}};
  const std::string antennas =
      "SELECT Instance_Id, rfpi FROM luc_cfg_ceqsu2 WHERE dsetup='y' AND system_id=1 AND ecp=2 AND cell=";
  database.answers[antennas + "37 ORDER BY rfpi"] = {{"Instance_Id", "rfpi"}, {{0, 1}, {0, 2}}};
  database.answers[antennas + "38 ORDER BY rfpi"] = {{"Instance_Id", "rfpi"}, {{0, 1}}};
  for (const std::string cell : {"37", "38"}) {
    database.answers["SELECT cdma_carr_id FROM luc_cfg_cdma_car_chans WHERE system_id=1 AND ecp=2 AND cell=" +
                     cell + " ORDER BY keyid"] = {{"cdma_carr_id"}, {{384}, {425}}};
  }
}

class VcsaTabs : public test::StudyTest {
 protected:
  VcsaTabs() : StudyTest(kVcsStudy) { FillNetwork(*host_.database); }

  CKivVcsData& Data() { return *study_->VcsData(); }
  void LoadBoth() {
    Load(general_);
    Load(detail_);
  }
  void DropCells() {
    general_.dlvwCell.DropNodes({{"Cell:11", 1, 2, 37, 11}, {"Cell:12", 1, 2, 38, 12}});
    host_.editor->notifications.cdtnNotify_TabShow.Raise("XKivVcsDetail");
  }
  std::string Events() const {
    std::string text;
    for (const auto& box : detail_.chkEvent) text += box.Checked() ? 'x' : '-';
    return text;
  }

  XKivVcsGen general_;
  XKivVcsDetail detail_;
};

TEST_F(VcsaTabs, ADroppedCellGetsWhatTheConfigurationHas) {
  LoadBoth();
  DropCells();
  const CCell& cdma = AsCell(Data().Cells()->Item("Cell:11"));
  EXPECT_EQ(cdma.TechType(), "AMPS/CDMA");
  EXPECT_EQ(cdma.Antennas()->Count(), 2);
  EXPECT_EQ(cdma.Carriers()->Count(), 2);
  EXPECT_EQ(AsCell(Data().Cells()->Item("Cell:12")).Carriers()->Count(), 0);  // no CDMA, no carriers
  EXPECT_EQ(general_.dlvwCell.Text(0, 3), "AMPS/CDMA");
  EXPECT_EQ(detail_.dlvwAntenna.RowCount(), 3U);
  EXPECT_EQ(detail_.dlvwCarrier.RowCount(), 2U);
  EXPECT_EQ(host_.editor->changes, std::vector<std::string>{"XKivVcsGen"});
}

TEST_F(VcsaTabs, AValidGeneralPageIsRemembered) {
  const test::TempFolder folder;
  LoadBoth();
  DropCells();
  general_.XDest.SetPath(folder.Path());
  for (const char* duration : {"100", "490", "10"}) {
    general_.txtDuration.SetText(duration);  // no quarter hours, or too many, or none
    EXPECT_NE(RefusalOf(general_), "") << duration;
  }
  EXPECT_TRUE(host_.settings->remembered.empty());
  general_.txtDuration.SetText("45");
  EXPECT_EQ(RefusalOf(general_), "");
  EXPECT_EQ(host_.settings->remembered["VcsDuration"], "45");
}

TEST_F(VcsaTabs, AFailingConfigurationLeavesStoredCellsAsTheyAre) {
  study_->SetIsNew(false);
  Data().AddCell(11, 1, 2, 37);
  AsCell(Data().Cells()->Item("Cell:11")).AddAntenna(0, 1, 3, 37, 1, true);
  host_.database->failure = "gone";
  EXPECT_THROW(LoadBoth(), host::DatabaseError);
  EXPECT_EQ(general_.dlvwCell.RowCount(), 1U);
  EXPECT_EQ(AsCell(Data().Cells()->Item("Cell:11")).Antennas()->Count(), 1);
}

TEST_F(VcsaTabs, EventsAreChosenAloneOrByShortcut) {
  LoadBoth();
  EXPECT_EQ(RefusalOf(detail_), "At least one Event Category must be selected.");
  EXPECT_EQ(detail_.cboEvent.Items().size(), 1U);  // no CDMA cell yet
  DropCells();
  ASSERT_EQ(detail_.cboEvent.Items().size(), 2U);
  detail_.cboEvent.Select(1);
  EXPECT_EQ(Events(), "xxxxxxxxxxxxx");
  detail_.cboEvent.Select(0);
  EXPECT_EQ(Events(), "xxxxxx-------");
  detail_.chkEvent[1].Click();
  EXPECT_EQ(detail_.cboEvent.ListIndex(), ui::kNoSelection);
  detail_.cboEvent.Select(0);  // can be chosen anew
  EXPECT_EQ(Events(), "xxxxxx-------");
  detail_.chkEvent[12].Click();
  detail_.SaveData();
  EXPECT_EQ(Data().EventA() + Data().EventF() + Data().EventG() + Data().EventM(), "YYNY");
}

TEST_F(VcsaTabs, DetailChecksTheDnAndThePollingInterval) {
  LoadBoth();
  detail_.chkEvent[0].Click();
  host_.settings->general["Phone Number Mask"] = "###-####";
  detail_.txtSingleDn.SetText("5551");
  EXPECT_EQ(RefusalOf(detail_), "Number of digits in DN doesn't match mask.");
  EXPECT_TRUE(detail_.txtSingleDn.edit.HasFocus());
  detail_.txtSingleDn.SetText("5551234");
  const std::string range = "Polling Interval must be between 1 and 300 seconds inclusive.";
  ExpectRefusals(
      detail_, detail_.txtPollingInterval,
      {{"", "Polling Interval must be numeric."}, {"0", range}, {"301", range}, {"1", ""}, {"300", ""}});
  detail_.SaveData();
  EXPECT_EQ(Data().SingleDn(), "5551234");
  EXPECT_EQ(study_->PollingInterval(), 300);
}

TEST_F(VcsaTabs, AStoredCellKeepsItsChoicesAndGetsWhatItsCgsaHasNow) {
  study_->SetIsNew(false);
  study_->SetDuration(45);
  Data().SetEventB("Y");
  host_.database->functions["lucent_generic.find_cell_tech"]["14"] = "CDMA";
  host_.database->answers
      ["SELECT a.carrier_no FROM luc_cfg_cgsa_cdma_cars a, luc_cfg_cgsa_cell_list b WHERE a.system_id = "
       "b.system_id AND a.ecp=b.ecp AND a.cgsano=b.cgsano AND b.cell=5 AND b.system_id=1 AND b.ecp=3"] = {
      {"carrier_no"}, {{384}, {425}}};
  Data().AddCell(14, 1, 3, 5);
  AsCell(Data().Cells()->Item("Cell:14")).AddCarrier(0, "1", "3", "5", "384", true);
  LoadBoth();
  const CCell& cell = AsCell(Data().Cells()->Item("Cell:14"));
  EXPECT_EQ(cell.Carriers()->Count(), 2);
  EXPECT_TRUE(cell.Carriers()->Item("Carrier:1-3-5-384")->Selected());
  EXPECT_FALSE(cell.Carriers()->Item("Carrier:1-3-5-425")->Selected());
  EXPECT_EQ(general_.dlvwCell.TheCollection(), Data().Cells());
  EXPECT_EQ(general_.txtDuration.Text(), "45");
  EXPECT_EQ(Events(), "-x-----------");
  EXPECT_TRUE(host_.editor->changes.empty());
}

}  // namespace
}  // namespace kiv
