#include "plm/tdma_tab.h"

#include "plm/mode_names.h"
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

class PlmTdma : public test::TabTest<XKivPlmTdma> {
 protected:
  PlmTdma() : TabTest(kPlmStudy) {}

  CKivPlmData& Data() { return *study_->PlmData(); }
  CKivPlmMode& Mode(std::int32_t number) { return *Data().ReturnMode(MKivStudyCtls::ModeName(number)); }
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
  ASSERT_EQ(tab_.Problems().size(), 1U);
  EXPECT_EQ(tab_.Problems().front().message, "Mode 6: You must enter at least one channel.");
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
}

TEST_F(PlmTdma, SwitchingRefusesAndUncheckingKeeps) {
  LoadNew();
  Check(2);
  tab_.XMode2.txtTotal.SetText("1");
  Choose(3);
  EXPECT_EQ(host_.TakeMessage(), std::string("Mode 2  ") + kOverTotal);
  EXPECT_EQ(tab_.obModeSelector.Index(), 1);
  EXPECT_EQ(Panels(), "2");
  Check(3);
  EXPECT_NE(host_.TakeMessage(), "");
  EXPECT_FALSE(tab_.chkMode[2].Checked());
  EXPECT_EQ(Data().ModeCount(), 1);

  Check(2);  // out, in spite of what is wrong with it
  EXPECT_EQ(Data().ModeCount(), 0);
  Check(3);
  EXPECT_EQ(tab_.CurrentMode(), "Mode 3");
  tab_.XMode3.XChannelList1.txtChannelList.Type("4\n5");
  Check(3);
  Check(2);  // in again, as it was left
  EXPECT_EQ(tab_.XMode2.txtTotal.Text(), "1");
  tab_.XMode2.txtTotal.SetText("10");
  Check(3);
  EXPECT_EQ(tab_.XMode3.XChannelList1.txtChannelList.Text(), "4\n5\n");
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Data().ModeCount(), 2);
  Mode(2).SetRangeTo(77);  // by the host
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
  const std::pair<const char*, std::string> lists[] = {
      {"", "You must enter at least one channel."},
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
      {"1999.4", ""}};
  for (const auto& [text, message] : lists) {
    channels.txtChannelList.SetText(text);
    EXPECT_EQ(Refusal(), message) << text;
  }
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

}  // namespace
}  // namespace kiv
