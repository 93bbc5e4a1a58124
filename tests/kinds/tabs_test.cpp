// What holds for every tab of every study kind, and their first pages: what they propose, in which order they
// check, what they save.

#include <functional>
#include <map>

#include "core/conversions.h"
#include "editor/dd_list_view.h"
#include "editor/document_chooser.h"
#include "editor/study_tabs.h"
#include "hom/hom_data.h"
#include "plm/plm_data.h"
#include "rfc/rfc_data.h"
#include "support/raised.h"
#include "support/tab_test.h"
#include "support/temp_folder.h"
#include "ui/text_box.h"
#include "vcsa/vcs_data.h"

namespace kiv {
namespace {

TEST(EveryTab, RefusesToWorkWithoutAStudyOfItsKind) {
  test::FakeHost host;
  for (const StudyKind& kind : StudyKinds()) {
    const bool isHom = kind.name == kHomStudy;
    const auto other = test::NewStudy(isHom ? kPlmStudy : kHomStudy);
    for (const StudyTab& made : kind.tabs) {
      SCOPED_TRACE(made.className);
      const auto tab = made.create();
      tab->LoadState();
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->SaveData(); }), ErrorNumber::ObjectNotSet);
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->IsTabValid(""); }), ErrorNumber::ObjectNotSet);
      EXPECT_TRUE(tab->Problems().empty());
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->LoadData(Variant(1), "", host.editor); }),
                ErrorNumber::TypeMismatch);
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->LoadData(Variant(other), "", host.editor); }),
                ErrorNumber::ObjectNotSet);
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->SaveData(); }), ErrorNumber::ObjectNotSet);
      EXPECT_FALSE(tab->HandleTabProcess("anything"));
    }
  }
  EXPECT_TRUE(host.messages->shown.empty());
}

using Texts = std::map<std::string, std::string>;

struct Box {
  const char* name;
  const char* standard;    // in a new study
  const char* remembered;  // name of the remembered value
};

/// What fails first while everything is empty, and which control is to blame.
struct Check {
  const char* control;
  const char* message;
};

struct Number {
  const char* box;
  int low;
  int high;
  const char* range;  // message outside
};

struct Page {
  std::string_view kind;
  const char* extension;
  std::vector<Box> boxes;
  bool emptiedKeepsStandard;
  std::vector<Check> checks;
  std::vector<Number> numbers;
  std::function<void(CKivStudyData&)> fill;
};

/// What the filled study shows, by the boxes that a page has, and the columns of the record behind them.
const Texts kShown = {{"txtPath", "/d"},
                      {"txtFilename", "abc"},
                      {"txtDuration", "120"},
                      {"txtRetrieveDelay", "7"},
                      {"txtTag", "night"}};
const Texts kColumns = {{"txtPath", "Path"}, {"txtFilename", "DataFile"}, {"txtTag", "Tag"}};

constexpr Check kScenario = {"fdocCBScenario", "Please select a scenario."};
constexpr Check kPath = {"txtPath", "Data File Destination Path is a required field."};
constexpr Check kName = {"txtFilename", "Data File Destination Filename is a required field."};
constexpr Check kDuration = {"txtDuration", "Study Duration must be numeric."};
constexpr Check kDelay = {"txtRetrieveDelay", "Retrieve Delay must be numeric."};

const Page kPages[] = {
    {kHomStudy,
     ".hom",
     {{"txtPath", "", "DatafilePath"},
      {"txtFilename", "h$YY$MM$DD$HH$MI", "HomFilename"},
      {"txtDuration", "30", "HomDuration"}},
     false,
     {kScenario, kPath, kName, kDuration},
     {{"txtDuration", 10, 1439, "Study Duration must be between 10 and 1439 minutes inclusive."}},
     [](CKivStudyData& study) {
       study.HomData()->SetPath("/d");
       study.HomData()->SetDataFile("abc.hom");
     }},
    {kPlmStudy,
     ".plm",
     {{"txtPath", "", "DatafilePath"},
      {"txtFilename", "p$YY$MM$DD$HH$MI", "PlmFilename"},
      {"txtDuration", "30", "PlmDuration"},
      {"txtTag", "data", "PlmTag"},
      {"txtRetrieveDelay", "1", "PlmRetrieveDelay"}},
     true,
     {kScenario, kPath, kName, kDuration, kDelay},
     {{"txtDuration", 1, 1440, "Study Duration must be between 1 and 1440 minutes inclusive."},
      {"txtRetrieveDelay", 1, 10, "Retrieve Delay must be between 1 and 10 minutes inclusive."}},
     [](CKivStudyData& study) { study.PlmData()->Initialize(0, "/d", "abc.plm", "night"); }},
    {kRfcStudy,
     "",
     {{"txtDuration", "30", "RfcDuration"}, {"txtTag", "data", "RfcTag"}},
     false,
     {{"dlvwEntity", "Please select an ECP for the study."},
      kDuration,
      {"txtTag", "Tag is a required field."}},
     {{"txtDuration", 15, 240, "Study Duration must be between 15 and 240 minutes inclusive."}},
     [](CKivStudyData& study) { study.RfcData()->Initialize(9, "night", "N", "N", "Y", "/d", 0, 0); }},
    {kVcsStudy,
     ".vcs",
     {{"txtPath", "", "DatafilePath"},
      {"txtFilename", "v$YY$MM$DD$HH$MI", "VcsFilename"},
      {"txtDuration", "30", "VcsDuration"},
      {"txtRetrieveDelay", "15", "VcsRetrieveDelay"}},
     false,
     {{"dlvwCell", "Please select at least one cell for the study."}, kPath, kName, kDuration, kDelay},
     {{"txtDuration", 15, 480,
       "Study Duration must be between 15 and 480 minutes inclusive and \r\n"
       "expressed in increments of quarter hours (15, 30, 45,etc)."},
      {"txtRetrieveDelay", 1, 120, "Retrieve Delay must be between 1 and 120 minutes inclusive."}},
     [](CKivStudyData& study) {
       study.VcsData()->SetPath("/d");
       study.VcsData()->SetDataFile("abc.vcs");
     }},
};

class GeneralPages : public test::StudyTest, public ::testing::WithParamInterface<Page> {
 protected:
  GeneralPages() : StudyTest(GetParam().kind) { test::StoreFeatures(*host_.database, 2, "Y", "N"); }

  ui::TextBox& Text(const std::string& name) { return dynamic_cast<ui::TextBox&>(*tab_->FindControl(name)); }
  std::string Refusal() { return RefusalOf(*tab_); }
  /// Enters what a control needs.
  void Fix(const std::string& name) {
    const Texts texts = {{"txtPath", folder_.Path()},
                         {"txtFilename", "a1"},
                         {"txtDuration", "30"},
                         {"txtRetrieveDelay", "5"},
                         {"txtTag", "t."}};
    ui::Control* control = tab_->FindControl(name);
    if (auto* list = dynamic_cast<XDDListView*>(control)) {
      list->DropNodes({{study_->RfcData() ? "Ecp:2" : "Cell:2", 1, 2, 3, 2}});
    } else if (auto* chooser = dynamic_cast<DocumentChooser*>(control)) {
      chooser->Select(1);
    } else {
      Text(name).SetText(texts.at(name));
    }
  }

  test::TempFolder folder_;
  std::unique_ptr<Tab> tab_ = FindStudyKind(GetParam().kind)->tabs.front().create();
};

INSTANTIATE_TEST_SUITE_P(Kinds, GeneralPages, ::testing::ValuesIn(kPages),
                         [](const auto& page) { return FindStudyKind(page.param.kind)->tabs[0].className; });

TEST_P(GeneralPages, ANewStudyShowsTheDefaultsAndThenWhatIsRemembered) {
  for (const Box& box : GetParam().boxes) {
    for (const char* remembered : {"77", ""}) {
      host_.settings->remembered = {{box.remembered, remembered}};
      Load(*tab_);
      for (const Box& other : GetParam().boxes) {
        const bool keeps = !*remembered && GetParam().emptiedKeepsStandard && box.standard != std::string();
        const bool shows = other.name == std::string(box.name) && !keeps;
        EXPECT_EQ(Text(other.name).Text(), shows ? remembered : other.standard) << other.name;
      }
    }
  }
  EXPECT_TRUE(host_.editor->changes.empty());
  Texts expected;
  for (const Box& box : GetParam().boxes) {
    Text(box.name).SetText(std::string("new") + box.name);
    expected[box.remembered] = std::string("new") + box.name;
  }
  host_.settings->remembered.clear();
  tab_->RememberValues();
  EXPECT_EQ(host_.settings->remembered, expected);
}

TEST_P(GeneralPages, ChecksRunInOrderAndMoveTheFocus) {
  Load(*tab_);
  for (const Box& box : GetParam().boxes) Text(box.name).SetText("");
  EXPECT_EQ(tab_->Problems().size(), GetParam().checks.size());
  for (const Check& check : GetParam().checks) {
    EXPECT_EQ(Refusal(), check.message);
    EXPECT_TRUE(tab_->FindControl(check.control)->HasFocus()) << check.control;
    EXPECT_EQ(host_.editor->broughtForward.back(), tab_->Name());
    Fix(check.control);
  }
  EXPECT_EQ(host_.editor->hourglass.substr(0, 2), GetParam().kind == kPlmStudy ? "+-" : "");
  EXPECT_EQ(Refusal(), "");
  for (const Number& number : GetParam().numbers) {
    const std::string range = number.range;
    const std::string numeric = range.substr(0, range.find(" must")) + " must be numeric.";
    ExpectRefusals(*tab_, Text(number.box),
                   {{std::to_string(number.low - 1), range},
                    {std::to_string(number.low), ""},
                    {std::to_string(number.high), ""},
                    {std::to_string(number.high) + ".4", ""},
                    {std::to_string(number.high + 1), range},
                    {"-30", range},
                    {"99999999999999999999", range},
                    {" ", numeric},
                    {"30x", numeric},
                    {"1 0", numeric}});
    Fix(number.box);
  }
  EXPECT_EQ(study_->Duration(), -1);  // checking writes nothing
}

TEST_P(GeneralPages, SavesWhatItShowsAndShowsWhatIsStored) {
  study_->SetIsNew(false);
  study_->SetScenarioID(9);
  study_->SetDuration(120);
  study_->SetRetrieveDelay(7);
  GetParam().fill(*study_);
  Load(*tab_);
  auto* scenario = dynamic_cast<DocumentChooser*>(tab_->FindControl("fdocCBScenario"));
  if (scenario) {
    EXPECT_EQ(scenario->SelectedID(), 9);
    scenario->Select(0);
  }
  EXPECT_TRUE(host_.editor->changes.size() == (scenario ? 1U : 0U));
  Texts expected;
  for (const Box& box : GetParam().boxes) {
    const std::string& text = kShown.at(box.name);
    EXPECT_EQ(Text(box.name).Text(), text);
    host_.editor->changes.clear();
    Text(box.name).Type("2");
    EXPECT_FALSE(host_.editor->changes.empty()) << box.name;
    if (!kColumns.contains(box.name)) continue;
    const bool isName = box.name == std::string("txtFilename");
    expected[kColumns.at(box.name)] = text + "2" + (isName ? GetParam().extension : "");
  }
  Text("txtDuration").Type("x.");  // digits only
  EXPECT_EQ(host_.beeper->beeps, 2);
  tab_->SaveData();
  EXPECT_EQ(study_->ScenarioID(), scenario ? 7 : 9);
  EXPECT_EQ(study_->Duration(), 1202);
  EXPECT_EQ(study_->RetrieveDelay(), tab_->FindControl("txtRetrieveDelay") ? 72 : 7);
  for (const NamedValue& field : study_->SubRecord()->StoredFields()) {
    const auto saved = expected.find(std::string(field.name));
    if (saved != expected.end()) {
      EXPECT_EQ(ToText(field.value), saved->second);
    }
  }
}

}  // namespace
}  // namespace kiv
