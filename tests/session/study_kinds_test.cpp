// The life of a study of each kind through its tabs, on real databases with the sample network. That of a HOM
// study is told with the store.

#include <gtest/gtest.h>

#include "core/study_kinds.h"
#include "plm/cdma_tab.h"
#include "plm/general_tab.h"
#include "plm/tdma_tab.h"
#include "rfc/cdma_3g_tab.h"
#include "rfc/detail_tab.h"
#include "rfc/general_tab.h"
#include "session/kept_input.h"
#include "session/scenario_strip.h"
#include "store/network/network_import.h"
#include "support/rich_studies.h"
#include "support/studies_test.h"
#include "support/test_store.h"
#include "ui/text_box.h"
#include "vcsa/detail_tab.h"
#include "vcsa/general_tab.h"

namespace kiv::client {
namespace {

using test::Page;

class StudyOfKind : public ::testing::TestWithParam<test::Engine>, protected test::StudiesTest {
 protected:
  StudyOfKind() : StudiesTest(GetParam()) {
    EXPECT_EQ(store::ImportNetwork(*connection_, KIV_SAMPLE_NETWORK).outcome,
              store::NetworkReport::Outcome::Imported);
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, StudyOfKind, ::testing::ValuesIn(test::Engines()),
                         ::testing::PrintToStringParamName());

TEST_P(StudyOfKind, UnsavedInputIsKeptWithWhatIsNotValid) {
  const auto elsewhere = GetParam().start();
  test::TestStore other(*elsewhere);
  other->Scenarios().Add("Down'town");
  for (const std::string& kind : test::RichKinds()) {
    SCOPED_TRACE(kind);
    store::Study study = store_.New(kind);
    test::Fill(study, 1);
    study.record->SetScenarioID(scenario_);
    store_.Save(study, "ann");
    const auto session = Reopened(study.record->ID());
    ui::Control* duration = nullptr;
    for (Tab* tab : session->HeaderAndTabs())
      duration = duration ? duration : tab->FindControl("txtDuration");
    if (duration) dynamic_cast<ui::TextBox&>(*duration).SetText("5x");
    session->SetName("kept");
    const std::string kept = session::KeptInput(*session);
    EXPECT_EQ(session::NameOfKept(kept), "kept");
    EXPECT_EQ(session::DatabaseOfKept(kept), connection_->Name());

    const auto back = session::SessionOfKept(store_, kept);
    EXPECT_TRUE(back->Modified());
    EXPECT_EQ(session::KeptInput(*back), kept);
    store::Study draft = back->Draft();
    store_.Save(draft, "ann");
    EXPECT_EQ(draft.revision, 2);
    draft = session::SessionOfKept(store_, kept)->Draft();
    EXPECT_THROW(store_.Save(draft, "ann"), store::StudyConflict) << "it was saved since";
    const auto moved = session::SessionOfKept(*other, kept);
    EXPECT_TRUE(moved->IsNew());
    EXPECT_EQ(test::Content(moved->Draft()), test::Content(session->Draft()));
  }
  EXPECT_THROW(session::SessionOfKept(store_, "{}"), store::StoreError);
}

/// The two pages for the modes of a PLM study, worked by the modes' numbers.
class PlmModes {
 public:
  explicit PlmModes(const session::StudySession& session)
      : tdma(Page<XKivPlmTdma>(session)), cdma(Page<XKivPlmCdma>(session)) {}

  void Check(std::size_t mode) { (mode < 7 ? tdma.chkMode[mode - 1] : cdma.chkMode[mode - 7]).Click(); }
  void Show(std::size_t mode) {
    (mode < 7 ? tdma.obModeSelector[mode - 1] : cdma.obModeSelector[mode - 7]).Click();
  }

  XKivPlmTdma& tdma;
  XKivPlmCdma& cdma;
};

TEST_P(StudyOfKind, PlmKeepsChangesAndRemovesItsModes) {
  const auto stored = [this] {
    return Rows(
               "PlmMode, Carrier, ServiceOption, GenerationType, SelectionMethod, AmpsDistribution, SortBy, "
               "SelectFromList, RangeFrom, ExcludeAce, DistributionMethod",
               "KIV_PlmMode ORDER BY PlmMode") +
           "/" + Rows("PlmMode, Channel", "KIV_PlmChannelList ORDER BY PlmMode, Channel");
  };
  const auto session = NewSession(kPlmStudy);
  Page<XKivPlmGen>(*session).fdocCBScenario.SelectID(scenario_);
  Page<XKivPlmGen>(*session).XDest.SetPath(folder_.Path());
  PlmModes modes(*session);
  for (const std::size_t mode : {2, 3}) modes.Check(mode);
  modes.tdma.XMode3.XChannelList1.txtChannelList.Paste("1999;1");
  modes.Check(5);
  modes.tdma.XMode5.cboSort1.Select(2);
  modes.tdma.XMode5.cboMethod.Select(1);
  modes.tdma.XMode5.XChannelList1.txtChannelList.Paste("312 313");
  for (const std::size_t mode : {6, 8}) modes.Check(mode);
  modes.cdma.txtCarrier.Type("18");
  modes.cdma.cboServiceOption.Select(2);
  modes.Check(15);
  modes.cdma.txtCarrier.Type("15");
  modes.cdma.cboGenerationType.Select(0);
  ASSERT_TRUE(Save(*session));
  const std::string two = "2|NULL|NULL|NULL|Auto|5|Member|Begin|1|N|Expand;";
  const std::string three = "3|NULL|NULL|NULL||NULL|||NULL||;";
  const std::string all =
      two + three +
      "5|NULL|NULL|NULL|Manual|5|Radio|Begin|1|N|Expand;6|NULL|NULL|NULL|All|NULL|||NULL||;"
      "8|18|8|NULL||NULL|||NULL||;15|15|NULL|0||NULL|||NULL||;/3|1;3|1999;5|312;5|313;";
  EXPECT_EQ(stored(), all);

  const auto again = Reopened(session->ID());
  PlmModes second(*again);
  for (const std::size_t mode : {2, 3, 5, 6, 8, 15}) second.Show(mode);
  EXPECT_FALSE(again->Modified());
  Page<XKivPlmGen>(*again).txtTag.Type("2");
  ASSERT_TRUE(Save(*again));  // deletes the study's row, which takes the modes along
  EXPECT_EQ(stored(), all);

  // What the user changes takes the old setting's place.
  second.Show(5);
  second.tdma.XMode5.cboMethod.Select(2);
  second.Show(6);
  second.tdma.XMode6.cboMethod.Select(1);
  second.tdma.XMode6.XChannelList1.txtChannelList.Type("12");
  second.Show(8);
  second.cdma.cboServiceOption.Select(9);
  for (const std::size_t mode : {3, 15}) second.Check(mode);
  ASSERT_TRUE(Save(*again));
  const std::string others =
      "5|NULL|NULL|NULL|All|5|Radio|Begin|1|N|Expand;6|NULL|NULL|NULL|Manual|NULL|||NULL||;"
      "8|18|15|NULL||NULL|||NULL||;/";
  EXPECT_EQ(stored(), two + others + "6|12;");
  second.Check(3);  // its channels are still there
  ASSERT_TRUE(Save(*again));
  EXPECT_EQ(stored(), two + three + others + "3|1;3|1999;6|12;");

  store_.Remove(again->ID(), "ann");
  EXPECT_EQ(stored() + Rows("Id", "KIV_PlmStudy"), "/");
}

TEST_P(StudyOfKind, RfcGoesFromAnEcpToCellsAndToASingleDn) {
  const auto study = [this] { return Rows("dBm, MultipleDns, UseEcp, F, R", "KIV_RfcStudy"); };
  const auto lists = [this] {
    return Rows("EcpId, InstanceId", "KIV_Ecp_List") + "/" +
           Rows("CellId, InstanceId", "KIV_Cell_List ORDER BY CellId") + "/" +
           Rows("Dn, DataFile", "KIV_RfcDnList");
  };
  auto session = NewSession(kRfcStudy);
  session->SetName("Trace");
  Page<session::ScenarioStrip>(*session).fdocCBScenario.SelectID(scenario_);
  Page<XKivRfcGen>(*session).dlvwEntity.DropNodes({{"Ecp:1002", 1, 1, 0, 1002}});  // traces several DNs
  session->NotifyTabShown("XKivRfcDetail");
  auto& detail = Page<XKivRfcDetail>(*session);
  detail.txtPath.SetText(folder_.Path());
  for (const auto& [row, dn, file] : {std::tuple{1U, "5552", "b"}, {2U, "5551", "a"}}) {
    detail.txtDirectoryNumber[row].edit.Type(dn);
    detail.txtFilename[row].Type(file);
  }
  ASSERT_TRUE(Save(*session));
  EXPECT_EQ(study(), "Y|Y|Y|NULL|NULL;");
  EXPECT_EQ(lists(), "1|1002;//5552|b.rft;5551|a.rft;");

  session = Reopened(session->ID());
  Page<XKivRfcGen>(*session).optEntityType[1].Click();
  Page<XKivRfcGen>(*session).dlvwEntity.DropNodes(
      {{"Cell:1004", 1, 1, 2, 1004}, {"Cell:1003", 1, 1, 1, 1003}});
  ASSERT_TRUE(Save(*session));
  EXPECT_EQ(study(), "Y|Y||NULL|NULL;");
  EXPECT_EQ(lists(), "/1|1003;2|1004;/5552|b.rft;5551|a.rft;");

  session = Reopened(session->ID());
  auto& entities = Page<XKivRfcGen>(*session);
  EXPECT_EQ(entities.optEntityType.Index(), 1);
  EXPECT_EQ(entities.dlvwEntity.RowCount(), 2U);
  EXPECT_EQ(Page<XKivRfcDetail>(*session).txtDirectoryNumber[2].Text(), "5551");
  entities.optEntityType[0].Click();
  entities.dlvwEntity.DropNodes({{"Ecp:1033", 1, 2, 0, 1033}});  // traces one
  session->NotifyTabShown("XKivRfcDetail");
  Page<XKivRfcDetail>(*session).cmdRemoveUnused.Click();  // 5551, which would hold the save up
  Page<XKivRfcCDMA3G>(*session).chkRestrictReverse.Click();
  Page<XKivRfcCDMA3G>(*session).optReverseRate[4].Click();
  ASSERT_TRUE(Save(*session));
  EXPECT_EQ(study(), "Y|N|Y|0|5;");
  EXPECT_EQ(lists(), "2|1033;//5552|b.rft;");

  session = Reopened(session->ID());
  EXPECT_EQ(Page<XKivRfcDetail>(*session).txtDirectoryNumber[0].Text(), "5552");
  EXPECT_EQ(Page<XKivRfcCDMA3G>(*session).optReverseRate.Index(), 4);
  EXPECT_FALSE(session->Modified());
  Page<XKivRfcCDMA3G>(*session).chkRestrictReverse.Click();
  ASSERT_TRUE(Save(*session));
  EXPECT_EQ(study(), "Y|N|Y|0|5;") << "a cleared restriction stays";

  for (const std::string column : {"F", "R"}) {
    connection_->ExecuteSql("ALTER TABLE KIV_RfcStudy DROP COLUMN " + column);
  }
  session = Reopened(session->ID());
  auto& rates = Page<XKivRfcCDMA3G>(*session);
  EXPECT_FALSE(rates.chkRestrictForward.Checked() || rates.chkRestrictReverse.Checked());
  Page<XKivRfcGen>(*session).txtTag.Type("2");
  ASSERT_TRUE(Save(*session));
  EXPECT_EQ(Rows("Tag", "KIV_RfcStudy"), "data2;");
  rates.chkRestrictForward.Click();
  EXPECT_THROW(session->Save("ann"), host::DatabaseError);  // told, and nothing is lost
  EXPECT_TRUE(session->Modified());
  EXPECT_EQ(lists(), "2|1033;//5552|b.rft;");

  store_.Remove(session->ID(), "ann");
  EXPECT_EQ(Rows("Id", "KIV_RfcStudy") + lists(), "//");
}

TEST_P(StudyOfKind, VcsaKeepsItsChoicesOverSavesAndChangesOfTheNetwork) {
  const auto antennas = [this] {
    return Rows("EcpId, AntennaId, InstanceId, Selected", "KIV_Antenna_List ORDER BY EcpId, AntennaId");
  };
  const auto carriers = [this] {
    return Rows("EcpId, CarrierId, Selected", "KIV_Carrier_List ORDER BY EcpId, CarrierId");
  };
  const auto session = NewSession(kVcsStudy);
  session->SetName("Events");
  Page<session::ScenarioStrip>(*session).fdocCBScenario.SelectID(scenario_);
  auto& general = Page<XKivVcsGen>(*session);
  general.XDest.SetPath(folder_.Path());
  // Cells of the same number on two ECPs.
  general.dlvwCell.DropNodes({{"Cell:1007", 1, 1, 6, 1007}, {"Cell:1037", 1, 2, 6, 1037}});
  session->NotifyTabShown("XKivVcsDetail");
  auto& detail = Page<XKivVcsDetail>(*session);
  detail.chkEvent[0].Click();
  detail.dlvwAntenna.ClickCheckBox(1);  // 2 of the first cell
  detail.dlvwAntenna.ClickCheckBox(5);  // 1 of its namesake, behind five of the first
  detail.dlvwCarrier.ClickCheckBox(2);  // 3 of the first cell
  ASSERT_TRUE(Save(*session));
  const std::string chosenAntennas =
      "1|1|1389|N;1|2|1390|Y;1|4|0|N;1|5|1392|N;1|6|1393|N;"
      "2|1|1514|Y;2|2|1515|N;2|3|1516|N;2|4|1517|N;2|5|1518|N;";
  const std::string chosenCarriers = "1|1|N;1|2|N;1|3|Y;2|1|N;2|2|N;";
  EXPECT_EQ(antennas(), chosenAntennas);
  EXPECT_EQ(carriers(), chosenCarriers);

  const auto saveAgain = [&] {
    const auto again = Reopened(session->ID());
    again->NotifyTabShown("XKivVcsDetail");
    ui::TextBox& duration = Page<XKivVcsGen>(*again).txtDuration;
    duration.SetText(duration.Text() == "30" ? "45" : "30");
    EXPECT_TRUE(Save(*again));
  };
  saveAgain();
  EXPECT_EQ(antennas(), chosenAntennas);
  EXPECT_EQ(carriers(), chosenCarriers);

  // A chosen antenna and a chosen carrier leave the network; one of each comes to it.
  for (const char* change : {"DELETE FROM luc_cfg_ceqsu2 WHERE Instance_Id = 1390",
                             "DELETE FROM luc_cfg_cdma_car_chans WHERE system_id = 1 AND ecp = 1 AND cell = "
                             "6 AND cdma_carr_id = 3",
                             "INSERT INTO luc_cfg_ceqsu2 VALUES (9001, 1, 2, 6, 7, 'y')",
                             "INSERT INTO luc_cfg_cdma_car_chans (cdma_carr_id, system_id, ecp, cell, keyid) "
                             "VALUES (4, 1, 2, 6, 7)"}) {
    connection_->ExecuteSql(change);
  }
  for (int save = 0; save < 2; ++save) {
    saveAgain();
    EXPECT_EQ(antennas(), chosenAntennas + "2|7|9001|N;");
    EXPECT_EQ(carriers(), chosenCarriers + "2|4|N;");
  }
}

}  // namespace
}  // namespace kiv::client
