#include "plm/cdma_tab.h"

#include "plm/mode_names.h"
#include "support/tab_test.h"

namespace kiv {
namespace {

class PlmCdma : public test::TabTest<XKivPlmCdma> {
 protected:
  PlmCdma() : TabTest(kPlmStudy) {}

  CKivPlmData& Data() { return *study_->PlmData(); }
  CKivPlmMode& Mode(std::size_t index) { return *Data().ReturnMode(MKivStudyCtls::ModeName(7 + int(index))); }
  /// A stored mode, as loading leaves it.
  void Store(std::int32_t number, std::int32_t carrier, std::int32_t option, std::int32_t type) {
    const auto mode = std::make_shared<CKivPlmMode>();
    mode->Initialize(5, number, carrier, option, type, "", -1, -1, -1, "", "", "", -1, -1, "", false);
    Data().AddMode(MKivStudyCtls::ModeName(number), mode);
  }
  std::string Checked() {
    std::string boxes;
    for (const auto& box : tab_.chkMode) boxes += box.Checked() ? 'x' : '-';
    return boxes;
  }
  static std::string ValuesOf(const ui::ComboBox& list) {
    std::string values;
    for (const auto& item : list.Items()) values += std::to_string(item.data) + " ";
    return values;
  }
};

TEST_F(PlmCdma, EachModeShowsWhatItHas) {
  LoadNew();
  for (std::size_t i = 0; i < XKivPlmCdma::kModes; ++i) {
    tab_.obModeSelector[i].Click();
    EXPECT_TRUE(tab_.lblDescription.Caption().starts_with(tab_.CurrentMode() + ":  ")) << i;
    EXPECT_EQ(tab_.cboServiceOption.Enabled(), i < 2);
    EXPECT_EQ(tab_.Label1[0].Enabled(), i < 2);
    EXPECT_EQ(tab_.cboGenerationType.Enabled(), i > 3);
    EXPECT_EQ(tab_.Label1[1].Enabled(), i > 3);
    EXPECT_EQ(tab_.cboServiceOption.Items().empty(), i > 1);
  }
  EXPECT_EQ(tab_.lblDescription.Caption(), "Mode 15 CPLM7:  Soft handoff period for all traffic channels.");
  EXPECT_EQ(ValuesOf(tab_.cboGenerationType), "0 1 2 3 ");
  tab_.obModeSelector[0].Click();
  EXPECT_EQ(ValuesOf(tab_.cboServiceOption), "0 1 2 17 3 4 5 18 6 7 8 9 10 ");  // by value, not in order
  EXPECT_EQ(tab_.cboServiceOption.Items()[7].text, "(3GSMV) 3G Voice Selectable Mode Vocoder RC3");
  tab_.obModeSelector[1].Click();
  EXPECT_EQ(ValuesOf(tab_.cboServiceOption), "1 7 8 9 10 11 12 13 14 15 ");
  EXPECT_TRUE(host_.editor->changes.empty());  // looking around is no edit
  EXPECT_EQ(Refusal(), "");                    // nothing is checked, nothing is wrong
  EXPECT_EQ(Data().Modes()->Count(), 0);
}

TEST_F(PlmCdma, AtMostTwoModesAreChecked) {
  LoadNew();
  tab_.chkMode[0].Click();
  tab_.chkMode[4].Click();
  tab_.chkMode[8].Click();
  ASSERT_EQ(host_.messages->shown.size(), 1U);
  EXPECT_EQ(host_.messages->shown[0].title, "PLM Editor");
  EXPECT_EQ(host_.TakeMessage(), "Only two CDMA modes are allowed for one study.");
  EXPECT_EQ(Checked(), "x---x----");
  EXPECT_EQ(tab_.CurrentMode(), "Mode 11 CPLM3");
  EXPECT_EQ(Data().ModeCount(), 2);
  tab_.chkMode[0].Click();
  tab_.chkMode[8].Click();
  EXPECT_EQ(Checked(), "----x---x");
  EXPECT_EQ(Data().ModeCount(), 2);
  EXPECT_EQ(host_.editor->changes.size(), 4U);
}

TEST_F(PlmCdma, AModeIsLeftOnlyWhenItIsInOrder) {
  LoadNew();
  tab_.chkMode[0].Click();
  const std::pair<const char*, std::vector<const char*>> refusals[] = {
      {"Carrier must be numeric.", {"", " ", "x4"}},
      {"Carrier must be between 1 and 18 inclusive.", {"0", "19", "-1", "18.6", "99999999999999999999"}},
      {"Service Option is a required value.", {"18"}}};
  for (const auto& [message, carriers] : refusals) {
    for (const std::string carrier : carriers) {
      tab_.txtCarrier.SetText(carrier);
      tab_.obModeSelector[3].Click();
      EXPECT_EQ(host_.TakeMessage(), message) << carrier;
      EXPECT_EQ(tab_.obModeSelector.Index(), 0);
      EXPECT_EQ(tab_.txtCarrier.Text(), carrier);
      EXPECT_EQ(Refusal(), message);
      ASSERT_EQ(tab_.Problems().size(), carrier == "18" ? 1U : 2U);
      EXPECT_EQ(tab_.Problems()[0].message, message);
    }
  }
  EXPECT_TRUE(tab_.cboServiceOption.HasFocus());
  tab_.cboServiceOption.Select(3);
  tab_.obModeSelector[3].Click();
  EXPECT_EQ(tab_.CurrentMode(), "Mode 10 CPLM2");
  EXPECT_EQ(Mode(0).Carrier(), 18);
  EXPECT_EQ(Mode(0).ServiceOption(), 17);  // by its value, not its place
  EXPECT_EQ(Mode(0).GenerationType(), -1);
  EXPECT_EQ(tab_.lblModeSelector[0].Caption(), "Mode   7 FER1");
  EXPECT_EQ(tab_.lblModeSummary[0].Caption(), "carrier 18 (2GSMV)");
  tab_.txtCarrier.SetText("");
  tab_.txtCarrier.Type("1a-2.");
  EXPECT_EQ(tab_.txtCarrier.Text(), "12");
}

TEST_F(PlmCdma, NothingTypedIsLostByCheckingAndUnchecking) {
  LoadNew();
  tab_.chkMode[0].Click();
  tab_.cboServiceOption.Select(1);
  tab_.txtCarrier.SetText("abc");
  tab_.chkMode[4].Click();  // the record could not keep this
  EXPECT_EQ(host_.TakeMessage(), "Carrier must be numeric.");
  EXPECT_EQ(Checked(), "x--------");
  EXPECT_EQ(tab_.txtCarrier.Text(), "abc");
  tab_.txtCarrier.SetText("33");
  tab_.chkMode[4].Click();  // this it can, and says so until it is corrected
  EXPECT_EQ(host_.TakeMessage(), "");
  EXPECT_EQ(Mode(0).Carrier(), 33);
  tab_.txtCarrier.SetText("7");
  tab_.cboGenerationType.Select(2);
  ASSERT_EQ(tab_.Problems().size(), 1U);
  EXPECT_EQ(tab_.Problems()[0].control, &tab_.obModeSelector[0]);
  EXPECT_EQ(Refusal(), "Mode   7 FER1 carrier must be between 1 and 18 inclusive.");

  tab_.chkMode[4].Click();  // out
  EXPECT_FALSE(Mode(4).Checked());
  EXPECT_TRUE(tab_.lblHint.Visible());
  tab_.txtCarrier.SetText("8");  // typed while the study does not run the mode
  tab_.obModeSelector[0].Click();
  EXPECT_EQ(tab_.txtCarrier.Text(), "33");
  tab_.txtCarrier.SetText("5");
  tab_.chkMode[4].Click();  // and in again
  EXPECT_EQ(tab_.txtCarrier.Text(), "8");
  EXPECT_EQ(tab_.cboGenerationType.ListIndex(), 2);
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Mode(0).Carrier(), 5);
  EXPECT_EQ(Mode(4).Carrier(), 8);
  EXPECT_EQ(Data().ModeCount(), 2);
}

TEST_F(PlmCdma, AStoredStudyShowsItsModes) {
  Store(8, 2, 0, -1);  // 0 is none of its service options
  Store(12, -1, -1, 3);
  Store(3, -1, -1, -1);
  LoadStored();
  EXPECT_EQ(Checked(), "-x---x---");
  EXPECT_EQ(Data().ModeCount(), 2);
  EXPECT_EQ(tab_.CurrentMode(), "Mode   7 FER1");
  EXPECT_EQ(tab_.obModeSelector.Index(), 0);
  EXPECT_TRUE(tab_.Problems().empty());  // an unset carrier and any set option pass in records
  EXPECT_EQ(Refusal(), "");
  tab_.obModeSelector[5].Click();
  EXPECT_EQ(tab_.cboGenerationType.ListIndex(), 3);
  EXPECT_EQ(tab_.txtCarrier.Text(), "");
  EXPECT_TRUE(host_.editor->changes.empty());
  tab_.txtCarrier.SetText("9");
  tab_.obModeSelector[1].Click();
  EXPECT_EQ(tab_.cboServiceOption.ListIndex(), ui::kNoSelection);
  EXPECT_EQ(Refusal(), "Service Option is a required value.");
  tab_.SaveData();
  EXPECT_EQ(Mode(5).Carrier(), 9);
  EXPECT_EQ(Mode(5).ID(), study_->ID());
}

TEST_F(PlmCdma, RecordsAreCheckedInTheOrderOfTheirCollection) {
  Store(15, 40, -1, -1);
  Store(7, 3, -1, -1);
  Store(8, 50, -1, -1);
  LoadStored();
  tab_.obModeSelector[4].Click();  // refuses to leave FER1 without a service option
  EXPECT_EQ(host_.TakeMessage(), "Service Option is a required value.");
  tab_.cboServiceOption.Select(0);
  ASSERT_EQ(tab_.Problems().size(), 2U);
  EXPECT_EQ(tab_.Problems()[1].message, "Mode   8 FER2 carrier must be between 1 and 18 inclusive.");
  EXPECT_EQ(tab_.Problems()[0].message, "Mode 15 CPLM7 carrier must be between 1 and 18 inclusive.");
  EXPECT_EQ(Refusal(), tab_.Problems()[0].message);
  EXPECT_TRUE(tab_.obModeSelector[8].HasFocus());
  Mode(8).SetCarrier(4);
  Mode(1).SetCarrier(4);
  EXPECT_EQ(Refusal(), "Mode   8 FER2 'Service Option' is a required value.");
}

}  // namespace
}  // namespace kiv
