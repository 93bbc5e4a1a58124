#include "plm/general_tab.h"

#include "core/study_kinds.h"
#include "support/tab_test.h"
#include "support/temp_folder.h"

namespace kiv {
namespace {

class PlmGeneral : public test::TabTest<XKivPlmGen> {
 protected:
  PlmGeneral() : TabTest(kPlmStudy) {}
};

TEST_F(PlmGeneral, NewStudyShowsDefaultsUnlessSomethingElseIsRemembered) {
  LoadNew();
  EXPECT_EQ(tab_.XDest.Path(), "");
  EXPECT_EQ(tab_.XDest.Filename(), "p$YY$MM$DD$HH$MI.plm");
  EXPECT_EQ(tab_.txtDuration.Text() + "|" + tab_.txtRetrieveDelay.Text() + "|" + tab_.txtTag.Text(),
            "30|1|data");
  EXPECT_TRUE(host_.editor->changes.empty());
  host_.settings->remembered = {
      {"DatafilePath", "/d"}, {"PlmFilename", ""}, {"PlmDuration", "60"}, {"PlmTag", ""}};
  LoadNew();
  EXPECT_EQ(tab_.XDest.Path(), "/d");
  EXPECT_EQ(tab_.XDest.Filename(), "p$YY$MM$DD$HH$MI.plm");
  EXPECT_EQ(tab_.txtDuration.Text() + "|" + tab_.txtTag.Text(), "60|data");
}

TEST_F(PlmGeneral, ChecksRunInOrderUnderTheHourglass) {
  const test::TempFolder folder;
  LoadNew();
  tab_.XDest.SetFilename("");
  tab_.txtDuration.SetText("");
  tab_.txtRetrieveDelay.SetText("1 0");
  EXPECT_EQ(tab_.Problems().size(), 5U);
  EXPECT_EQ(Refusal(), "Please select a scenario.");
  EXPECT_EQ(host_.editor->hourglass, "+-");
  EXPECT_TRUE(tab_.fdocCBScenario.HasFocus());
  tab_.fdocCBScenario.Select(1);
  EXPECT_EQ(Refusal(), "Data File Destination Path is a required field.");
  tab_.XDest.SetPath(folder.Path());
  EXPECT_EQ(Refusal(), "Data File Destination Filename is a required field.");
  tab_.XDest.SetFilename("p1");

  const std::string notNumeric = " must be numeric.";
  const std::string duration = "Study Duration must be between 1 and 1440 minutes inclusive.";
  const std::string delay = "Retrieve Delay must be between 1 and 10 minutes inclusive.";
  const std::pair<const char*, std::string> durations[] = {
      {"", "Study Duration" + notNumeric},
      {"abc", "Study Duration" + notNumeric},
      {"  ", "Study Duration" + notNumeric},
      {"0", duration},
      {"1441", duration},
      {"-5", duration},
      {"99999999999999999999", duration},
      {"0.4", duration},
      {"1440.5", "Retrieve Delay" + notNumeric},  // half to even: 1440
      {"1", "Retrieve Delay" + notNumeric}};
  for (const auto& [text, message] : durations) {
    tab_.txtDuration.SetText(text);
    EXPECT_EQ(Refusal(), message) << text;
  }
  const std::pair<const char*, std::string> delays[] = {
      {"x", "Retrieve Delay" + notNumeric}, {"0", delay}, {"11", delay},
      {"99999999999999999999", delay},      {"10.5", ""}, {"10", ""}};
  for (const auto& [text, message] : delays) {
    tab_.txtRetrieveDelay.SetText(text);
    EXPECT_EQ(Refusal(), message) << text;
  }
  EXPECT_TRUE(tab_.txtRetrieveDelay.HasFocus());
  EXPECT_EQ(study_->Duration(), -1);
}

TEST_F(PlmGeneral, SavesWhatItShowsAndShowsWhatIsStored) {
  study_->SetScenarioID(9);
  study_->SetDuration(120);
  study_->SetRetrieveDelay(7);
  study_->PlmData()->Initialize(0, "/d", "abc.plm", "night");
  LoadStored();
  EXPECT_EQ(tab_.fdocCBScenario.SelectedID(), 9);
  EXPECT_EQ(tab_.txtDuration.Text() + "|" + tab_.txtRetrieveDelay.Text() + "|" + tab_.txtTag.Text(),
            "120|7|night");
  tab_.txtDuration.Type("x9");
  tab_.txtRetrieveDelay.Type("\b3.");
  tab_.txtTag.Type("!");
  tab_.XDest.txtPath.Paste("2");
  tab_.fdocCBScenario.Select(0);
  EXPECT_EQ(host_.editor->changes.size(), 6U);
  tab_.SaveData();
  EXPECT_EQ(study_->ScenarioID(), 7);
  EXPECT_EQ(study_->Duration(), 1209);
  EXPECT_EQ(study_->RetrieveDelay(), 3);
  const CKivPlmData& data = *study_->PlmData();
  EXPECT_EQ(data.Path() + "|" + data.DataFile() + "|" + data.Tag(), "/d2|abc.plm|night!");
  tab_.RememberValues();
  EXPECT_EQ(host_.settings->remembered, (std::map<std::string, std::string>{{"DatafilePath", "/d2"},
                                                                            {"PlmFilename", "abc"},
                                                                            {"PlmDuration", "1209"},
                                                                            {"PlmTag", "night!"},
                                                                            {"PlmRetrieveDelay", "3"}}));
}

}  // namespace
}  // namespace kiv
