#include "plm/cdma_tab.h"
#include "plm/mode_names.h"
#include "plm/tdma_tab.h"
#include "support/tab_test.h"

namespace kiv {
namespace {

/// What a mode stores, in the order of its columns.
std::string Stored(const CKivPlmMode& mode) {
  std::string text = std::to_string(mode.PlmMode());
  for (const auto& word :
       {mode.SelectionMethod(), std::to_string(mode.AmpsDistribution()),
        std::to_string(mode.TdmaDistribution()), std::to_string(mode.TotalDistribution()),
        mode.DistributionMethod(), mode.SortBy(), mode.SelectFromList(), std::to_string(mode.RangeFrom()),
        std::to_string(mode.RangeTo()), mode.ExcludeAce(), mode.GetChannelList()}) {
    text += "|" + word;
  }
  return text;
}

template <class TabType>
class PlmTab : public test::TabTest<TabType> {
 protected:
  PlmTab() : test::TabTest<TabType>(kPlmStudy) {}

  CKivPlmData& Data() { return *this->study_->PlmData(); }
  CKivPlmMode& Mode(std::int32_t number) { return *Data().ReturnMode(MKivStudyCtls::ModeName(number)); }
};

class PlmTdma : public PlmTab<XKivPlmTdma> {
 protected:
  void Check(std::int32_t number) { tab_.chkMode[std::size_t(number) - 1].Click(); }
  void Choose(std::int32_t number) { tab_.obModeSelector[std::size_t(number) - 1].Click(); }
  /// The numbers of the modes whose panels are visible.
  std::string Panels() {
    const ModePanel* all[] = {&tab_.XMode1, &tab_.XMode2, &tab_.XMode3,
                              &tab_.XMode4, &tab_.XMode5, &tab_.XMode6};
    std::string visible;
    for (const ModePanel* panel : all) visible += panel->Visible() ? std::to_string(panel->Number()) : "";
    return visible;
  }
};

TEST_F(PlmTdma, AModeCheckedForTheFirstTimeTakesItsDefaults) {
  LoadNew();
  EXPECT_EQ(Panels(), "1");
  Choose(2);
  EXPECT_EQ(tab_.XMode2.txtAmps.Text(), "");  // showing invents nothing
  EXPECT_FALSE(tab_.XMode2.txtAmps.Enabled() || tab_.XMode2.XChannelList1.Enabled());
  EXPECT_TRUE(host_.editor->changes.empty());
  for (std::int32_t number = 1; number <= 6; ++number) {
    Check(number);
    EXPECT_EQ(host_.TakeMessage(), number == 4 ? "You must enter at least one channel." : "") << number;
    if (number != 4) continue;
    EXPECT_FALSE(tab_.chkMode[3].Checked());  // mode 3 could not be left
    EXPECT_EQ(Panels(), "3");
    EXPECT_TRUE(tab_.XMode3.XChannelList1.txtChannelList.HasFocus());
    tab_.XMode3.XChannelList1.txtChannelList.Type("7");
    Check(number);
  }
  EXPECT_EQ(Panels(), "6");
  EXPECT_TRUE(tab_.XMode6.cboMethod.HasFocus());
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Data().ModeCount(), 6);
  EXPECT_EQ(Stored(Mode(1)), "1||-1|-1|-1||||-1|-1||");
  EXPECT_EQ(Stored(Mode(2)), "2|Auto|5|5|10|Expand|Member|Begin|1|1999|N|");
  EXPECT_EQ(Stored(Mode(3)), "3||-1|-1|-1||||-1|-1||7");
  EXPECT_EQ(Stored(Mode(5)), "5|Auto|5|5|10|Expand|Member|Begin|1|1999|N|");
  EXPECT_EQ(Stored(Mode(6)), "6|All|-1|-1|-1||||-1|-1||");
}

struct DistributionCase {
  std::array<const char*, 5> texts;  // AMPS, TDMA, total, from, to
  const char* message = "";          // behind the mode's name; none when all is well
  const char* box = "";              // to blame
};

const char* const kAmpsRange = "'AMPS Channels' must be between 0 and 10 inclusive.";
const char* const kFromRange = "'From' channels cannot be less than 1 or greater than 1999 inclusive.";
const char* const kToRange = "'To' channels cannot be less than 1 or greater than 1999 inclusive.";
const char* const kOverTotal = "'AMPS and TDMA Channels' cannot be greater than 'Total to Select'.";

const DistributionCase kDistributions[] = {
    {{"10", "0", "10", "1999", "1999"}},
    {{"11", "x", "11", "", ""}, kAmpsRange, "txtAmps"},
    {{"-1", "5", "10", "1", "2"}, kAmpsRange, "txtAmps"},
    {{"10.4", "0", "10", "1", "2"}},
    {{"99999999999999999999", "", "", "", ""}, kAmpsRange, "txtAmps"},
    {{"", "11", "11", "", ""}, "'TDMA Channels' must be between 0 and 10 inclusive.", "txtTdma"},
    {{"", "", "11", "", ""}, "'Total to Select' must be between 0 and 10 inclusive.", "txtTotal"},
    {{"", "x", "", "", ""}, "'AMPS Channels' must be numeric.", "txtAmps"},
    {{"5", " ", "", "", ""}, "'TDAMA Channels' must be numeric.", "txtTdma"},
    {{"5", "5", "ten", "", ""}, "'Total to Select' must be numeric.", "txtTotal"},
    {{"5", "5", "10", "", "x"}, "'From' channels must be numeric.", "txtFrom"},
    {{"5", "5", "10", "1", "1 9"}, "'To' channels must be numeric.", "txtTo"},
    {{"5", "5", "10", "2000", "1"}, kFromRange, "txtFrom"},
    {{"5", "5", "10", "0", "1999"}, kFromRange, "txtFrom"},
    {{"5", "5", "10", "10", "5"}, "'From' channels cannot be greater than 'To' channels.", "txtFrom"},
    {{"9", "5", "10", "1", "2000"}, kToRange, "txtTo"},
    {{"6", "5", "10", "1", "1999"}, kOverTotal, "txtAmps"},
    {{"0", "0", "0", "1", "1999"}, "'AMPS and TDMA Channels' cannot both be zero.", "txtAmps"},
};

TEST_F(PlmTdma, TheAutomaticRulesRunInOrderOnControlsAndRecords) {
  LoadNew();
  for (DistributionPanel* panel : {&tab_.XMode2, &tab_.XMode5}) {
    Check(panel->Number());
    const std::string name = MKivStudyCtls::ModeName(panel->Number());
    for (const DistributionCase& c : kDistributions) {
      ui::TextBox* const boxes[] = {&panel->txtAmps, &panel->txtTdma, &panel->txtTotal, &panel->txtFrom,
                                    &panel->txtTo};
      for (std::size_t i = 0; i < c.texts.size(); ++i) boxes[i]->SetText(c.texts[i]);
      const std::string expected = *c.message ? name + "  " + c.message : "";
      EXPECT_EQ(Refusal(), expected);
      if (*c.box) {
        EXPECT_TRUE(panel->FindControl(c.box)->HasFocus()) << expected;
      }
      EXPECT_EQ(tab_.Problems().empty(), expected.empty());
    }
    for (ui::TextBox* box : {&panel->txtAmps, &panel->txtTdma, &panel->txtTotal}) box->SetText("5");
    panel->txtTdma.SetText("0");
    panel->txtTo.SetText("");
    panel->txtTo.Type("1a9.");
    EXPECT_EQ(panel->txtTo.Text(), "19");
  }
  CKivPlmMode stored;
  tab_.XMode5.DefaultsToData(stored);
  stored.SetTotalDistribution(11);
  EXPECT_FALSE(tab_.XMode5.ValidMode(stored));
  EXPECT_EQ(host_.TakeMessage(), "Mode 5  'Total to Select' must be between 0 and 10 inclusive.");
  stored.SetTotalDistribution(-1);  // unset counts as empty
  EXPECT_FALSE(tab_.XMode5.ValidMode(stored));
  EXPECT_EQ(host_.TakeMessage(), "Mode 5  'Total to Select' must be numeric.");
  EXPECT_TRUE(tab_.XMode2.ValidMode(stored));  // hidden
  stored.SetSelectionMethod("Manual");
  stored.SetKey("Mode 5");
  EXPECT_FALSE(tab_.XMode5.ValidMode(stored));
  EXPECT_EQ(host_.TakeMessage(), "Mode 5: You must enter at least one channel.");
}

TEST_F(PlmTdma, WhatWasTouchedBeforeCheckingStaysAmongTheDefaults) {
  LoadNew();
  Choose(2);
  tab_.XMode2.cboMethod.Select(0);
  tab_.XMode2.optAuto[1].Click();  // what storing an untouched panel would give as well
  Choose(5);
  EXPECT_EQ(Data().Modes()->Count(), 0) << "a mode that was never checked is none of the study";
  Choose(2);
  EXPECT_EQ(tab_.XMode2.optAuto.Index(), 1);
  EXPECT_EQ(tab_.XMode2.txtAmps.Text(), "");
  Check(2);
  EXPECT_EQ(Stored(Mode(2)), "2|Auto|5|5|10|Restrict|Member|Begin|1|1999|N|");

  Choose(5);
  tab_.XMode5.cboMethod.Select(0);
  tab_.XMode5.txtTotal.Type("8");
  Check(5);
  EXPECT_EQ(Refusal(), std::string("Mode 5  ") + kOverTotal);
  EXPECT_EQ(Stored(Mode(5)), "5|Auto|5|5|8|Expand|Member|Begin|1|1999|N|");
  EXPECT_EQ(tab_.XMode5.txtAmps.Text(), "5");
}

TEST_F(PlmTdma, TheMethodDecidesWhatIsUsedAndStored) {
  LoadNew();
  Check(5);
  auto& five = tab_.XMode5;
  EXPECT_EQ(five.cboMethod.Items()[2].text, "Study All Channels (not CDMA/AMPS)");
  EXPECT_TRUE(five.txtAmps.Enabled() && five.chkAce.Enabled() && !five.XChannelList1.Enabled());
  five.cboSort1.Select(2);
  five.cboSort2.Select(1);
  five.optAuto[1].Click();
  five.chkAce.Click();
  five.txtTo.SetText("60");
  five.cboMethod.Select(1);
  EXPECT_TRUE(!five.txtAmps.Enabled() && five.XChannelList1.txtChannelList.Enabled());
  five.XChannelList1.txtChannelList.Paste("9, 8;7\t6\n");
  five.txtAmps.SetText("99");  // not looked at any more
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Stored(Mode(5)), "5|Manual|99|5|10|Restrict|Radio|End|1|60|Y|9;8;7;6");
  EXPECT_EQ(tab_.lblModeSummary[4].Caption(), "4 channels");
  five.cboMethod.Select(2);
  five.txtFrom.SetText("");
  EXPECT_TRUE(!five.txtAmps.Enabled() && !five.XChannelList1.Enabled());
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Stored(Mode(5)), "5|All|99|5|10|Restrict|Radio|End|0|60|Y|");

  Choose(1);  // and back: the channels are not gone for good
  Choose(5);
  five.cboMethod.Select(1);
  EXPECT_EQ(five.XChannelList1.txtChannelList.Text(), "9\n8\n7\n6\n");
  EXPECT_EQ(Refusal(), "");
  five.cboMethod.Select(0);
  five.cmdDefaults.Click();
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Stored(Mode(5)), "5|Auto|5|5|10|Expand|Member|Begin|1|1999|N|");

  Check(6);
  tab_.XMode6.cboMethod.Select(1);
  EXPECT_EQ(Refusal(), "You must enter at least one channel.");
  tab_.XMode6.XChannelList1.txtChannelList.SetText("1999");
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Stored(Mode(6)), "6|Manual|-1|-1|-1||||-1|-1||1999");
  tab_.XMode6.cboMethod.SetListIndex(ui::kNoSelection);
  tab_.SaveData();
  EXPECT_EQ(Stored(Mode(6)), "6|No Selection Method|-1|-1|-1||||-1|-1||");
}

TEST_F(PlmTdma, AStoredModeComesBackAsItWas) {
  for (const std::int32_t number : {2, 5, 6}) {
    Data().AddMode(MKivStudyCtls::ModeName(number), std::make_shared<CKivPlmMode>());
  }
  Mode(2).Initialize(5, 2, -1, -1, -1, "Manual", -1, 3, -1, "Restrict", "Channel", "End", -1, 9, "Y", false);
  Mode(2).AddChannel(5, 2, 12, "Channel:12");
  Mode(5).Initialize(5, 5, -1, -1, -1, "Lottery", 1, 1, 2, "Expand", "Weight", "Middle", 1, 2, "?", false);
  Mode(6).Initialize(5, 6, -1, -1, -1, "Manual", -1, -1, -1, "", "", "", -1, -1, "", false);
  LoadStored();
  EXPECT_EQ(Refusal(), "") << "a mode that is not shown holds nobody up";
  EXPECT_TRUE(tab_.Problems().empty());
  ASSERT_FALSE(tab_.Findings().empty());
  EXPECT_EQ(tab_.Findings().back().message, "Mode 6: You must enter at least one channel.");
  Data().RemoveMode("Mode 6");
  EXPECT_TRUE(tab_.chkMode[1].Checked() && tab_.chkMode[4].Checked());
  EXPECT_EQ(tab_.CurrentMode(), "Mode 1");
  EXPECT_EQ(Panels(), "1");
  Choose(2);
  EXPECT_EQ(tab_.XMode2.txtAmps.Text() + "|" + tab_.XMode2.txtTdma.Text(), "|3");
  EXPECT_EQ(tab_.XMode2.XChannelList1.txtChannelList.Text(), "12\n");
  Choose(5);
  EXPECT_EQ(tab_.XMode5.cboMethod.ListIndex(), ui::kNoSelection);
  tab_.SaveData();
  EXPECT_TRUE(host_.editor->changes.empty());
  EXPECT_EQ(Stored(Mode(2)), "2|Manual|0|3|0|Restrict|Channel|End|0|9|Y|12");
  EXPECT_EQ(Stored(Mode(5)), "5|Lottery|1|1|2|Expand|Weight|Middle|1|2|N|");  // unknown words stay
  Mode(2).SetRangeTo(77);                                                     // by the host
  Choose(2);
  EXPECT_EQ(tab_.XMode2.txtTo.Text(), "77");
}

TEST_F(PlmTdma, UnsoundDefaultsAreToldInThePanelsOwnWords) {
  const struct {
    std::int32_t amps, total, from;
    std::string two, five;
  } cases[] = {{6, 10, 1, "  'AMPS and TDMA channels' cannot be greater than total channels.",
                "  'AMPS and TDMA Channels' cannot be greater than 'Total to Select'."},
               {5, 10, 2000, "  'From' channels cannot be greater than 'To' channels.",
                "  'From' channels cannot be greater than 'To' channels."},
               {5, 11, 1, "  'Total Channels to Select' cannot be greater than 10.",
                " 'Total Channels to Select' cannot be greater than 10."}};
  for (const auto& one : cases) {
    for (DistributionPanel* panel : {&tab_.XMode2, &tab_.XMode5}) {
      panel->SetDefaults({.amps = one.amps, .tdma = 5, .total = one.total, .from = one.from, .to = 1999});
      panel->InitControls();
      EXPECT_EQ(panel->txtAmps.Text(), std::to_string(one.amps));
      EXPECT_EQ(host_.TakeMessage(), panel->Number() == 2 ? "Mode 2" + one.two : "Mode 5" + one.five);
    }
  }
}

TEST_F(PlmTdma, EveryEntryOfAChannelListIsChecked) {
  LoadNew();
  Check(3);
  auto& channels = tab_.XMode3.XChannelList1;
  const std::string range = " must be between 1 and 1999 inclusive.";
  const std::string letters = " is not a valid channel number. Please fix it.";
  ExpectRefusals(channels.txtChannelList, {{"", "You must enter at least one channel."},
                                           {" ,;\n\n", "You must enter at least one channel."},
                                           {"1\n1999", ""},
                                           {"12\n12", "Channel 12 is a duplicate."},
                                           {"05 5", "Channel 5 is a duplicate."},
                                           {"0\nx", "Channel 0" + range},
                                           {"x\n0", "Channel x" + letters},
                                           {"2500", "Channel 2500" + range},
                                           {"-7", "Channel -7" + range},
                                           {"99999999999999999999", "Channel 99999999999999999999" + range},
                                           {"12a", "Channel 12a" + letters},
                                           {"1999.4", ""}});
  EXPECT_EQ(Mode(3).GetChannelList(), "1999");
  channels.txtChannelList.SetText("3 1,2");
  CKivPlmMode other;
  EXPECT_TRUE(channels.CtlsToData(other));
  EXPECT_EQ(other.GetChannelList(), "3;1;2");
  tab_.SaveData();
  EXPECT_EQ(Mode(3).GetChannelList(), "3;1;2");
  EXPECT_EQ((*Mode(3).ChannelList()->begin())->Key(), "Channel:3");
  EXPECT_EQ(channels.lblCount.Caption(), "3 channels");
}

class PlmCdma : public PlmTab<XKivPlmCdma> {
 protected:
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
  EXPECT_EQ(Mode(7).Carrier(), 18);
  EXPECT_EQ(Mode(7).ServiceOption(), 17);  // by its value, not its place
  EXPECT_EQ(Mode(7).GenerationType(), -1);
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
  EXPECT_EQ(Mode(7).Carrier(), 33);
  tab_.txtCarrier.SetText("7");
  tab_.cboGenerationType.Select(2);
  ASSERT_EQ(tab_.Problems().size(), 1U);
  EXPECT_EQ(tab_.Problems()[0].control, &tab_.obModeSelector[0]);
  EXPECT_EQ(Refusal(), "Mode   7 FER1 carrier must be between 1 and 18 inclusive.");

  tab_.txtCarrier.SetText("x");
  tab_.chkMode[4].Click();  // out, in spite of what is wrong with it
  EXPECT_FALSE(Mode(11).Checked());
  EXPECT_TRUE(tab_.lblHint.Visible());
  tab_.txtCarrier.SetText("8");  // typed while the study does not run the mode
  tab_.obModeSelector[0].Click();
  EXPECT_EQ(tab_.txtCarrier.Text(), "33");
  tab_.txtCarrier.SetText("5");
  tab_.chkMode[4].Click();  // and in again
  EXPECT_EQ(tab_.txtCarrier.Text(), "8");
  EXPECT_EQ(tab_.cboGenerationType.ListIndex(), 2);
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Mode(7).Carrier(), 5);
  EXPECT_EQ(Mode(11).Carrier(), 8);
  EXPECT_EQ(Data().ModeCount(), 2);
}

TEST_F(PlmCdma, AStoredStudyShowsItsModesAndChecksThemInTheOrderOfItsCollection) {
  Store(12, -1, -1, 3);
  Store(8, 2, 0, -1);  // 0 is none of its service options
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
  EXPECT_EQ(Mode(12).Carrier(), 9);
  EXPECT_EQ(Mode(12).ID(), study_->ID());

  tab_.cboServiceOption.Select(0);
  tab_.obModeSelector[0].Click();
  Mode(8).SetCarrier(50);
  Mode(12).SetCarrier(40);
  ASSERT_EQ(tab_.Problems().size(), 2U);
  EXPECT_EQ(tab_.Problems()[0].message, "Mode 12 CPLM4 carrier must be between 1 and 18 inclusive.");
  EXPECT_EQ(tab_.Problems()[1].message, "Mode   8 FER2 carrier must be between 1 and 18 inclusive.");
  EXPECT_EQ(Refusal(), tab_.Problems()[0].message);
  EXPECT_TRUE(tab_.obModeSelector[5].HasFocus());
  Mode(12).SetCarrier(4);
  Mode(8).SetCarrier(4);
  Mode(8).SetServiceOption(-1);
  EXPECT_EQ(Refusal(), "Mode   8 FER2 'Service Option' is a required value.");
}

}  // namespace
}  // namespace kiv
