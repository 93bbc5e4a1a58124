// PLM studies through their tabs, on real databases.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "plm/cdma_tab.h"
#include "plm/general_tab.h"
#include "plm/mode_names.h"
#include "plm/tdma_tab.h"
#include "support/studies_test.h"

namespace kiv::client {
namespace {

/// The tabs of one editor, worked as a user does.
class PlmHand {
 public:
  explicit PlmHand(session::StudySession& session)
      : general(dynamic_cast<XKivPlmGen&>(*session.Tabs()[0])),
        cdma(dynamic_cast<XKivPlmCdma&>(*session.Tabs()[1])),
        tdma(dynamic_cast<XKivPlmTdma&>(*session.Tabs()[2])) {}

  void Check(std::int32_t number) {
    (number < 7 ? tdma.chkMode[At(number)] : cdma.chkMode[At(number)]).Click();
  }
  void Show(std::int32_t number) {
    (number < 7 ? tdma.obModeSelector[At(number)] : cdma.obModeSelector[At(number)]).Click();
  }

  XKivPlmGen& general;
  XKivPlmCdma& cdma;
  XKivPlmTdma& tdma;

 private:
  static std::size_t At(std::int32_t number) {
    return static_cast<std::size_t>(number - (number < 7 ? 1 : 7));
  }
};

class PlmStudies : public test::EachEngine {
 protected:
  /// The stored modes by their numbers, each with its channels behind it.
  std::map<std::int32_t, std::string> Modes() {
    std::string columns;
    for (const auto& field : CKivPlmMode::Fields().subspan(2)) {
      columns.append(columns.empty() ? "" : ", ").append(field.name);
    }
    std::map<std::int32_t, std::string> modes;
    for (std::int32_t mode = 1; mode <= MKivStudyCtls::kModeCount; ++mode) {
      const std::string where = " WHERE PlmMode = " + std::to_string(mode);
      const std::string row = Rows(columns, "KIV_PlmMode" + where);
      const std::string channels = Rows("Channel", "KIV_PlmChannelList" + where + " ORDER BY Channel");
      if (!row.empty() || !channels.empty()) modes[mode] = row + channels;
    }
    return modes;
  }
  std::string Count(const std::string& table) { return Rows("count(*)", table); }
};

INSTANTIATE_TEST_SUITE_P(Engines, PlmStudies, ::testing::ValuesIn(test::Engines()),
                         [](const auto& engine) { return engine.param.name; });

TEST_P(PlmStudies, ModesAreKeptChangedAndRemoved) {
  const auto session = NewSession("PLM Study");
  PlmHand hand(*session);
  hand.general.fdocCBScenario.SelectID(scenario_);
  hand.general.XDest.SetPath(folder_.Path());
  for (const std::int32_t mode : {1, 2, 3}) hand.Check(mode);
  hand.tdma.XMode3.XChannelList1.txtChannelList.Paste("1999;1,77");
  for (const std::int32_t mode : {4, 5}) hand.Check(mode);
  hand.tdma.XMode5.cboSort1.Select(2);
  hand.tdma.XMode5.cboMethod.Select(1);
  hand.tdma.XMode5.XChannelList1.txtChannelList.Paste("400 312 313");
  for (const std::int32_t mode : {6, 8}) hand.Check(mode);
  hand.cdma.txtCarrier.Type("18");
  hand.cdma.cboServiceOption.Select(2);
  hand.Check(15);
  hand.cdma.txtCarrier.Type("15");
  hand.cdma.cboGenerationType.Select(0);
  ASSERT_TRUE(Save(*session));
  const std::string unset = "NULL|NULL|NULL|";
  const std::string rest = "|NULL|NULL|NULL|||NULL|NULL||;";
  std::map<std::int32_t, std::string> rows = {
      {1, unset + rest},
      {2, unset + "Auto|5|5|10|Member|Begin|1|1999|N|Expand;"},
      {3, unset + rest + "1;77;1999;"},
      {4, unset + rest},
      {5, unset + "Manual|5|5|10|Radio|Begin|1|1999|N|Expand;312;313;400;"},
      {6, unset + "All" + rest},
      {8, "18|8|NULL|" + rest},
      {15, "15|NULL|0|" + rest},
  };
  EXPECT_EQ(Modes(), rows);

  // Reopened, looked at and changed elsewhere, nothing of the modes changes.
  const auto again = Reopened(session->ID());
  PlmHand second(*again);
  for (const auto& [mode, row] : rows) second.Show(mode);
  EXPECT_FALSE(again->Modified());
  second.general.txtTag.Type("2");
  ASSERT_TRUE(Save(*again));  // deletes the study's row, which takes the modes along
  EXPECT_EQ(Modes(), rows);

  // What the user changes takes the old setting's place.
  const auto changed = Reopened(session->ID());
  PlmHand third(*changed);
  third.Show(2);
  third.tdma.XMode2.txtFrom.SetText("20");
  third.tdma.XMode2.optAuto[1].Click();
  third.tdma.XMode2.cboSort2.Select(1);
  third.tdma.XMode2.chkAce.Click();
  rows[2] = unset + "Auto|5|5|10|Member|End|20|1999|Y|Restrict;";
  third.Show(5);
  third.tdma.XMode5.cboMethod.Select(2);
  rows[5] = unset + "All|5|5|10|Radio|Begin|1|1999|N|Expand;";
  third.Show(6);
  third.tdma.XMode6.cboMethod.Select(1);
  third.tdma.XMode6.XChannelList1.txtChannelList.Type("12");
  rows[6] = unset + "Manual" + rest + "12;";
  third.Show(8);
  third.cdma.cboServiceOption.Select(9);
  rows[8] = "18|15|NULL|" + rest;
  third.Check(3);
  third.Check(15);
  ASSERT_TRUE(Save(*changed));
  third.Check(3);  // its channels are still there
  rows.erase(15);
  auto without3 = rows;
  without3.erase(3);
  EXPECT_EQ(Modes(), without3);
  ASSERT_TRUE(Save(*changed));
  EXPECT_EQ(Modes(), rows);

  store_.Remove(session->ID(), "ann");
  EXPECT_EQ(Count("KIV_PlmMode") + Count("KIV_PlmChannelList") + Count("KIV_PlmStudy"), "0;0;0;");
}

}  // namespace
}  // namespace kiv::client
