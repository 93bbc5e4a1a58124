// VCSA studies through their tabs, on real databases with the sample network.

#include <gtest/gtest.h>

#include "core/study_kinds.h"
#include "session/scenario_strip.h"
#include "store/network/network_import.h"
#include "support/studies_test.h"
#include "vcsa/detail_tab.h"
#include "vcsa/general_tab.h"

namespace kiv::client {
namespace {

/// Cells of the same number on two ECPs.
const std::vector<host::DraggedNode> kNamesakes = {{"Cell:1007", 1, 1, 6, 1007},
                                                   {"Cell:1037", 1, 2, 6, 1037}};

class VcsaStudies : public test::EachEngine {
 protected:
  VcsaStudies() {
    EXPECT_EQ(store::ImportNetwork(*connection_, KIV_SAMPLE_NETWORK).outcome,
              store::NetworkReport::Outcome::Imported);
  }

  std::unique_ptr<session::StudySession> Opened(store::Study study) {
    auto session = std::make_unique<session::StudySession>(store_, std::move(study));
    session->NotifyTabShown("XKivVcsDetail");
    return session;
  }
  static XKivVcsGen& General(session::StudySession& session) {
    return dynamic_cast<XKivVcsGen&>(*session.Tabs()[0]);
  }
  static XKivVcsDetail& Detail(session::StudySession& session) {
    return dynamic_cast<XKivVcsDetail&>(*session.Tabs()[1]);
  }
  /// Opens a stored study and saves it with another duration.
  void SaveAgain(std::int32_t id) {
    const auto session = Opened(store_.Load(id));
    ui::TextBox& duration = General(*session).txtDuration;
    duration.SetText(duration.Text() == "30" ? "45" : "30");
    EXPECT_TRUE(session->Save("bob"));
  }
  std::string Antennas(const std::string& of) {
    return Rows("EcpId, AntennaId, InstanceId, Selected",
                "KIV_Antenna_List WHERE " + of + " ORDER BY EcpId, AntennaId");
  }
  std::string Carriers() {
    return Rows("EcpId, CarrierId, Selected", "KIV_Carrier_List ORDER BY EcpId, CarrierId");
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, VcsaStudies, ::testing::ValuesIn(test::Engines()),
                         [](const auto& engine) { return engine.param.name; });

TEST_P(VcsaStudies, ChoicesSurviveSavesAndChangesOfTheNetwork) {
  const auto session = Opened(store_.New(std::string(kVcsStudy)));
  session->SetName("Events");
  dynamic_cast<session::ScenarioStrip&>(*session->Header()).fdocCBScenario.SelectID(scenario_);
  General(*session).XDest.SetPath(folder_.Path());
  General(*session).dlvwCell.DropNodes(kNamesakes);
  session->NotifyTabShown("XKivVcsDetail");
  XKivVcsDetail& detail = Detail(*session);
  detail.chkEvent[0].Click();
  detail.dlvwAntenna.ClickCheckBox(1);  // 2 of the first cell
  detail.dlvwAntenna.ClickCheckBox(5);  // 1 of its namesake, behind five of the first
  detail.dlvwCarrier.ClickCheckBox(2);  // 3 of the first cell
  ASSERT_TRUE(session->Save("ann"));

  const std::string first = "1|1|1389|N;1|2|1390|Y;1|4|0|N;1|5|1392|N;1|6|1393|N;";
  const std::string second = "2|1|1514|Y;2|2|1515|N;2|3|1516|N;2|4|1517|N;2|5|1518|N;";
  const std::string carriers = "1|1|N;1|2|N;1|3|Y;2|1|N;2|2|N;";
  EXPECT_EQ(Antennas("EcpId = 1"), first);
  EXPECT_EQ(Antennas("EcpId = 2"), second);
  EXPECT_EQ(Carriers(), carriers);
  SaveAgain(session->ID());
  EXPECT_EQ(Antennas("EcpId > 0"), first + second);
  EXPECT_EQ(Carriers(), carriers);

  // A chosen antenna and a chosen carrier leave the network; one of each comes to it.
  for (const char* change : {"DELETE FROM luc_cfg_ceqsu2 WHERE Instance_Id = 1390",
                             "DELETE FROM luc_cfg_cdma_car_chans WHERE "
                             "system_id = 1 AND ecp = 1 AND cell = 6 AND cdma_carr_id = 3",
                             "INSERT INTO luc_cfg_ceqsu2 (Instance_Id, system_id, ecp, cell, rfpi, dsetup) "
                             "VALUES (9001, 1, 2, 6, 7, 'y')",
                             "INSERT INTO luc_cfg_cdma_car_chans (cdma_carr_id, system_id, ecp, cell, keyid) "
                             "VALUES (4, 1, 2, 6, 7)"}) {
    connection_->ExecuteSql(change);
  }
  for (int save = 0; save < 2; ++save) {
    SaveAgain(session->ID());
    EXPECT_EQ(Antennas("EcpId > 0"), first + second + "2|7|9001|N;");
    EXPECT_EQ(Carriers(), carriers + "2|4|N;");
  }
}

}  // namespace
}  // namespace kiv::client
