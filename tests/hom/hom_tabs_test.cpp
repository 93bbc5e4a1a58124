#include "hom/current_tab.h"
#include "hom/detail_tab.h"
#include "hom/general_tab.h"
#include "support/tab_test.h"
#include "support/temp_folder.h"

namespace kiv {
namespace {

template <class TabType>
class HomTab : public test::TabTest<TabType> {
 protected:
  HomTab() : test::TabTest<TabType>(kHomStudy) {}

  CKivHomData& Data() { return *this->study_->HomData(); }
};

using General = HomTab<XKivHomGen>;
using Detail = HomTab<XKivHomDetail>;
using Current = HomTab<XKivHomCurrent>;

TEST_F(General, ScenariosMayGoAndCome) {
  study_->SetScenarioID(555);
  LoadStored();
  EXPECT_EQ(Refusal(), "Please select a scenario.");
  tab_.cmdNewScenario.Click();
  EXPECT_EQ(tab_.fdocCBScenario.SelectedID(), -1);
  host_.documents->nextNew = {11, "New town"};
  tab_.cmdNewScenario.Click();
  EXPECT_EQ(tab_.fdocCBScenario.SelectedID(), 11);
}

/// The boxes of a group as text: checked `x`, cleared `-`, in brackets when locked.
template <class Boxes>
std::string Picture(const Boxes& boxes, const ui::Button& button) {
  std::string text;
  for (const auto& box : boxes) text += box.Checked() ? 'x' : '-';
  EXPECT_EQ(boxes[0].Enabled(), button.Enabled());
  return (button.Enabled() ? text : "[" + text + "]") + " " + button.Caption();
}

struct DetailPictures : Detail {
  /// The TDMA boxes, then the CDMA boxes.
  std::string Groups() {
    return Picture(tab_.chkTDMA, tab_.cmdTDMA) + ", " + Picture(tab_.chkCDMA, tab_.cmdCDMA);
  }
};

TEST_F(DetailPictures, ANewStudyIsAmpsOnlyAndHeatModesCheckAndLockTheirGroup) {
  LoadNew();
  EXPECT_EQ(tab_.cboModeSelection.ListIndex(), 0);
  EXPECT_TRUE(tab_.chkAMPS.Checked());
  EXPECT_EQ(Groups(), "---- Select All, ------ Select All");
  EXPECT_EQ(Refusal(), "");
  EXPECT_TRUE(host_.editor->changes.empty());

  tab_.chkCDMA[2].Click();
  tab_.cboModeSelection.Select(1);
  EXPECT_EQ(Groups(), "[xxxx] Select All, [------] Select All");
  EXPECT_FALSE(tab_.chkAMPS.Enabled());
  EXPECT_EQ(host_.editor->changes.size(), 2U);
  EXPECT_EQ(Refusal(), "");  // the locked AMPS box counts
  tab_.SaveData();
  std::string stored;
  for (const NamedValue& field : Data().StoredFields()) stored += ToText(field.value);
  EXPECT_EQ(stored, "1YYYYYNNNNNN");  // the mode, AMPS and TDMA, and no CDMA
  tab_.cboModeSelection.Select(2);
  EXPECT_EQ(Groups(), "[----] Select All, [xxxxxx] Select All");
  tab_.cboModeSelection.Select(0);
  EXPECT_EQ(Groups(), "---- Select All, ------ Select All");

  tab_.chkAMPS.Click();  // without AMPS, a heat mode is refused as well
  EXPECT_EQ(Refusal(), "You must select at least one Handoff Type.");
  EXPECT_TRUE(tab_.chkAMPS.HasFocus());
  for (const int heat : {1, 2}) {
    tab_.cboModeSelection.Select(heat);
    EXPECT_EQ(Refusal(), "You must select at least one Handoff Type.");
  }
}

TEST_F(DetailPictures, ButtonsAndBoxesOfOneGroupLockTheOther) {
  LoadNew();
  tab_.chkTDMA[0].Click();
  tab_.chkTDMA[0].Click();
  tab_.cmdCDMA.Click();
  EXPECT_EQ(Groups(), "[----] Select All, xxxxxx Clear All");
  tab_.cmdTDMA.Click();  // locked
  EXPECT_EQ(Groups(), "[----] Select All, xxxxxx Clear All");
  tab_.cmdCDMA.Click();
  EXPECT_EQ(Groups(), "---- Select All, ------ Select All");
  tab_.cmdTDMA.Click();
  EXPECT_EQ(Groups(), "xxxx Clear All, [------] Select All");
  EXPECT_EQ(host_.editor->changes.size(), 5U);

  tab_.cmdTDMA.Click();
  tab_.chkCDMA[4].Click();
  EXPECT_EQ(Groups(), "[----] Select All, ----x- Select All");
  for (const std::size_t i : {0, 1, 2, 3, 5}) tab_.chkCDMA[i].Click();
  EXPECT_EQ(Groups(), "[----] Select All, xxxxxx Clear All");
  tab_.chkCDMA[5].Click();
  EXPECT_EQ(Groups(), "[----] Select All, xxxxx- Clear All");
  for (const std::size_t i : {0, 1, 2, 3}) tab_.chkCDMA[i].Click();
  EXPECT_EQ(Groups(), "[----] Select All, ----x- Clear All");
  tab_.chkCDMA[4].Click();
  EXPECT_EQ(Groups(), "---- Select All, ------ Select All");
}

TEST_F(DetailPictures, StoredStudyComesBackAsItWas) {
  Data().SetToAmps("y");  // not exactly "Y"
  Data().SetSoftAdd("Y");
  LoadStored();
  EXPECT_FALSE(tab_.chkAMPS.Checked());
  EXPECT_EQ(Groups(), "[----] Select All, ----x- Select All");
  EXPECT_EQ(Refusal(), "");

  Data().SetHomMode(2);
  LoadStored();
  EXPECT_EQ(tab_.cboModeSelection.ListIndex(), 2);
  EXPECT_EQ(Groups(), "[----] Select All, [----x-] Select All");  // no box changes by loading
  EXPECT_FALSE(tab_.chkAMPS.Enabled());

  Data().SetHomMode(7);
  LoadStored();
  tab_.SaveData();
  EXPECT_EQ(Data().HomMode(), 7);
  EXPECT_TRUE(host_.editor->changes.empty());
}

TEST_F(Current, ANewStudyCollectsNothingAndThenItsDirectoryAndNameAreChecked) {
  LoadNew();
  EXPECT_TRUE(tab_.chkStartOnFail.Checked());
  host_.settings->remembered = {{"CurStdPath", "/omp"}, {"CurStdDatafile", "cur"}, {"StartOnFail", "N"}};
  LoadNew();
  EXPECT_FALSE(tab_.chkCollectData.Checked());
  EXPECT_FALSE(tab_.txtCurStdPath.Enabled());
  EXPECT_EQ(tab_.txtCurStdPath.Text(), "/omp");
  EXPECT_FALSE(tab_.chkStartOnFail.Checked());
  tab_.txtCurStdPath.SetText("not * checked");
  EXPECT_EQ(Refusal(), "");
  tab_.txtCurStdPath.SetText("");
  tab_.chkCollectData.Click();
  EXPECT_TRUE(tab_.txtCurStdPath.Enabled());
  EXPECT_EQ(host_.editor->changes.size(), 3U);
  EXPECT_EQ(Refusal(), "OMP-FX Directory is a required field.");
  EXPECT_TRUE(tab_.txtCurStdPath.HasFocus());
  ExpectRefusals(tab_.txtCurStdPath, {{"- x", "OMP-FX Directory cannot begin with '-'."}});
  const std::string forbidden =
      "OMP-FX Directory cannot include any of the following characters:  *!~?+;\"'${}<>[]()^&|\\# <blank>";
  for (const char character : std::string(" *!~?+;\"'${}<>[]()^&|\\#")) {
    ExpectRefusals(tab_.txtCurStdPath, {{std::string("/a") + character + "b", forbidden}});
  }
  tab_.txtCurStdPath.SetText("/omp/data-1_%@:,.=");
  const std::string tooLong =
      "OMP-FX Filename must have at least 1 but no more than 11 characters\r\n"
      "and cannot include any of the following characters: \\ / : * ? \" < > |";
  ExpectRefusals(tab_.txtCurStdDatafile,
                 {{"  ", "OMP-FX Filename is a required field."},
                  {" abc", "OMP-FX Filename cannot contain spaces."},
                  {"_abc", "The first character of the OMP-FX Filename must be AlphaNumeric. "},
                  {"abcdefghijkl", tooLong},
                  {"a|b", tooLong},
                  {"c$YY$MM$DD$HH$MI", ""}});
}

TEST_F(Current, TheExtensionIsAddedAndTakenOff) {
  Data().SetCollectData("Y");
  Data().SetStartOnFail("maybe");
  Data().SetCurStdDatafile("abc.hom");
  LoadStored();
  EXPECT_TRUE(tab_.txtCurStdDatafile.Enabled());
  EXPECT_FALSE(tab_.chkStartOnFail.Checked());
  EXPECT_EQ(tab_.txtCurStdDatafile.Text(), "abc");
  tab_.txtCurStdDatafile.SetText("");
  tab_.SaveData();
  EXPECT_EQ(Data().CurStdDatafile(), "abc.hom");  // an emptied name changes nothing
  tab_.txtCurStdDatafile.SetText("new");
  tab_.chkCollectData.Click();
  tab_.SaveData();
  EXPECT_EQ(Data().CurStdDatafile() + Data().CollectData() + Data().StartOnFail(), "new.homNN");
  Data().SetCurStdDatafile("abc");
  LoadStored();
  EXPECT_EQ(tab_.txtCurStdDatafile.Text(), "abc");
}

}  // namespace
}  // namespace kiv
