// PLM studies through their tabs, on real databases.

#include <gtest/gtest.h>

#include "core/conversions.h"
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
  DistributionPanel& Rich(std::int32_t number) { return number == 2 ? tdma.XMode2 : tdma.XMode5; }

  XKivPlmGen& general;
  XKivPlmCdma& cdma;
  XKivPlmTdma& tdma;

 private:
  static std::size_t At(std::int32_t number) {
    return static_cast<std::size_t>(number - (number < 7 ? 1 : 7));
  }
};

/// One way of setting a mode: what the user does once it is checked, and the row that comes of it.
struct Setting {
  std::int32_t mode;
  std::function<void(PlmHand&)> enter;
  std::string stored;
};

/// Every mode in each of its methods, and every entry of each list.
std::vector<Setting> Settings() {
  const std::string nothing = "|NULL|NULL|NULL||NULL|NULL|NULL|||NULL|NULL||";
  const std::string unset = "|NULL|NULL|NULL|";
  std::vector<Setting> all = {
      {1, [](PlmHand&) {}, "1" + nothing + "|"},
      {3, [](PlmHand& hand) { hand.tdma.XMode3.XChannelList1.txtChannelList.Paste("1999;1,77"); },
       "3" + nothing + "|1 77 1999 "},
      {4, [](PlmHand&) {}, "4" + nothing + "|"},
      {6, [](PlmHand&) {}, "6" + unset + "All|NULL|NULL|NULL|||NULL|NULL|||"},
      {6,
       [](PlmHand& hand) {
         hand.tdma.XMode6.cboMethod.Select(1);
         hand.tdma.XMode6.XChannelList1.txtChannelList.Type("12");
       },
       "6" + unset + "Manual|NULL|NULL|NULL|||NULL|NULL|||12 "},
      {5, [](PlmHand& hand) { hand.tdma.XMode5.cboMethod.Select(2); },
       "5" + unset + "All|5|5|10|Member|Begin|1|1999|N|Expand|"},
  };
  for (const std::int32_t mode : {2, 5}) {
    const std::string number = std::to_string(mode);
    all.push_back({mode, [](PlmHand&) {}, number + unset + "Auto|5|5|10|Member|Begin|1|1999|N|Expand|"});
    all.push_back({mode,
                   [mode](PlmHand& hand) {
                     DistributionPanel& panel = hand.Rich(mode);
                     panel.txtAmps.SetText("0");
                     panel.txtTdma.SetText("9");
                     panel.txtTotal.SetText("9");
                     panel.txtFrom.SetText("20");
                     panel.txtTo.SetText("20");
                     panel.optAuto[1].Click();
                     panel.cboSort1.Select(1);
                     panel.cboSort2.Select(1);
                     panel.chkAce.Click();
                   },
                   number + unset + "Auto|0|9|9|Channel|End|20|20|Y|Restrict|"});
    all.push_back({mode,
                   [mode](PlmHand& hand) {
                     hand.Rich(mode).cboSort1.Select(2);
                     hand.Rich(mode).cboMethod.Select(1);
                     hand.Rich(mode).XChannelList1.txtChannelList.Paste("400 312 313");
                   },
                   number + unset + "Manual|5|5|10|Radio|Begin|1|1999|N|Expand|312 313 400 "});
  }
  const std::string rest = "||NULL|NULL|NULL|||NULL|NULL|||";
  const std::vector<std::vector<std::int32_t>> options = {{0, 1, 2, 17, 3, 4, 5, 18, 6, 7, 8, 9, 10},
                                                          {1, 7, 8, 9, 10, 11, 12, 13, 14, 15}};
  for (std::int32_t mode = 7; mode <= MKivStudyCtls::kModeCount; ++mode) {
    const auto carrier = [](PlmHand& hand, std::int32_t number) {
      hand.cdma.txtCarrier.SetText("");
      hand.cdma.txtCarrier.Type(std::to_string(number));
    };
    const std::string start = std::to_string(mode) + "|" + std::to_string(mode) + "|";
    if (mode < 9) {
      const auto& values = options[static_cast<std::size_t>(mode - 7)];
      for (int place = 0; place < static_cast<int>(values.size()); ++place) {
        all.push_back({mode,
                       [=](PlmHand& hand) {
                         carrier(hand, mode);
                         hand.cdma.cboServiceOption.Select(place);
                       },
                       start + std::to_string(values[static_cast<std::size_t>(place)]) + "|NULL" + rest});
      }
      continue;
    }
    all.push_back({mode, [=](PlmHand& hand) { carrier(hand, mode); }, start + "NULL|NULL" + rest});
    for (int type = 0; mode > 10 && type < 4; ++type) {
      all.push_back({mode,
                     [=](PlmHand& hand) {
                       carrier(hand, mode);
                       hand.cdma.cboGenerationType.Select(type);
                     },
                     start + "NULL|" + std::to_string(type) + rest});
    }
  }
  return all;
}

class PlmStudies : public test::EachEngine {
 protected:
  std::unique_ptr<session::StudySession> NewStudy() {
    auto session = NewSession("PLM Study");
    PlmHand hand(*session);
    hand.general.fdocCBScenario.SelectID(scenario_);
    hand.general.XDest.SetPath(folder_.Path());
    return session;
  }

  /// The stored modes of a study with their channels, one row a line; the column Id is left out.
  std::string Modes(std::int32_t id) {
    std::string rows;
    const std::string where = " WHERE Id = " + std::to_string(id);
    const auto modes = connection_->OpenQuery("SELECT * FROM KIV_PlmMode" + where + " ORDER BY PlmMode", 9);
    for (; !modes->EndOfFile(); modes->MoveNext()) {
      const auto text = [](const Variant& value) { return value.IsNull() ? "NULL" : ToText(value); };
      for (const auto& field : CKivPlmMode::Fields().subspan(1)) rows += text(modes->Field(field.name)) + "|";
      const auto channels = connection_->OpenQuery("SELECT Channel FROM KIV_PlmChannelList" + where +
                                                       " AND PlmMode = " + ToText(modes->Field("PlmMode")) +
                                                       " ORDER BY Channel",
                                                   9);
      for (; !channels->EndOfFile(); channels->MoveNext()) rows += ToText(channels->FieldAt(0)) + " ";
      rows += '\n';
    }
    return rows;
  }
  std::string Count(const std::string& table) { return Rows("count(*)", table); }
};

INSTANTIATE_TEST_SUITE_P(Engines, PlmStudies, ::testing::ValuesIn(test::Engines()),
                         [](const auto& engine) { return engine.param.name; });

TEST_P(PlmStudies, EverySettingOfEveryModeIsKept) {
  const auto all = Settings();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Setting& setting = all[i];
    SCOPED_TRACE("setting " + std::to_string(i) + " of mode " + std::to_string(setting.mode));
    const auto own = NewStudy();
    PlmHand first(*own);
    first.Check(setting.mode);
    setting.enter(first);
    ASSERT_TRUE(Save(*own));
    EXPECT_EQ(Modes(own->ID()), setting.stored + "\n");

    // Reopened, looked at and changed elsewhere, nothing of the mode changes.
    const auto again = Reopened(own->ID());
    PlmHand second(*again);
    second.Show(setting.mode);
    EXPECT_FALSE(again->Modified());
    second.general.txtTag.Type("2");
    ASSERT_TRUE(Save(*again));
    const std::string viewed = Modes(own->ID());
    EXPECT_EQ(viewed, setting.stored + "\n");

    // What the user then changes takes the old setting's place.
    if (i + 1 < all.size() && all[i + 1].mode == setting.mode && setting.mode >= 7) {
      const auto changed = Reopened(own->ID());
      PlmHand third(*changed);
      third.Show(setting.mode);
      all[i + 1].enter(third);
      ASSERT_TRUE(Save(*changed));
      EXPECT_EQ(Modes(own->ID()), all[i + 1].stored + "\n");
    }
  }
}

TEST_P(PlmStudies, AStudyKeepsAllItsModesOverTwoUpdates) {
  const auto session = NewStudy();
  PlmHand hand(*session);
  std::string expected;
  for (const std::int32_t mode : {1, 2, 3, 4, 5, 6, 8, 15}) {
    const auto all = Settings();
    const auto last =
        std::find_if(all.rbegin(), all.rend(), [mode](const auto& s) { return s.mode == mode; });
    hand.Check(mode);
    last->enter(hand);
    expected += last->stored + "\n";
  }
  ASSERT_TRUE(Save(*session));
  EXPECT_EQ(Modes(session->ID()), expected);
  hand.general.txtDuration.SetText("60");
  ASSERT_TRUE(Save(*session));  // deletes the study's row, which takes the modes along
  EXPECT_EQ(Modes(session->ID()), expected);

  const auto again = Reopened(session->ID());
  PlmHand second(*again);
  second.Check(3);
  second.Check(15);
  ASSERT_TRUE(Save(*again));
  EXPECT_EQ(Count("KIV_PlmMode"), "6;");
  EXPECT_EQ(Count("KIV_PlmChannelList"), "7;");  // of the modes 2, 5 and 6
  second.Check(3);                               // its channels are still there
  ASSERT_TRUE(Save(*again));
  EXPECT_EQ(Count("KIV_PlmMode"), "7;");
  EXPECT_EQ(Count("KIV_PlmStudy"), "1;");

  store_.Remove(session->ID(), "ann");
  EXPECT_EQ(Count("KIV_PlmMode") + Count("KIV_PlmChannelList") + Count("KIV_PlmStudy"), "0;0;0;");
}

}  // namespace
}  // namespace kiv::client
