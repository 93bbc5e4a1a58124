#include "plm/general_tab.h"

#include "core/numeric_text.h"
#include "editor/kiv_study_ctls.h"
#include "editor/number_checks.h"
#include "host/constants.h"

namespace kiv {

namespace {

constexpr std::int32_t kMaxNameLength = 11;  // of the default pattern, expanded
constexpr const char* kExtension = ".plm";
constexpr const char* kDefaultName = "p$YY$MM$DD$HH$MI";
constexpr const char* kDefaultDuration = "30";
constexpr const char* kDefaultTag = "data";
constexpr const char* kDefaultRetrieveDelay = "1";
const NumberRange kDuration = {"Study Duration", 1, 1440, "minutes"};
const NumberRange kRetrieveDelay = {"Retrieve Delay", 1, 10, "minutes"};

}  // namespace

XKivPlmGen::XKivPlmGen()
    : TabOf(kClassName, "General"),
      fdocCBScenario(this, "fdocCBScenario"),
      cmdNewScenario(this, "cmdNewScenario"),
      XDest(this, "XDest"),
      Frame2(this, "Frame2"),
      txtDuration(&Frame2, "txtDuration"),
      txtRetrieveDelay(&Frame2, "txtRetrieveDelay"),
      txtTag(&Frame2, "txtTag") {
  fdocCBScenario.OfferNew(cmdNewScenario);
  Frame2.SetCaption("Measurement");
  for (ui::TextBox* box : {&txtDuration, &txtRetrieveDelay}) {
    box->SetKeyFilter(MKivStudyCtls::NumericKeyFilter);
  }

  checks_.Append(fdocCBScenario.Checks());
  checks_.Append(XDest.PathChecks());
  checks_.Append(XDest.FilenameChecks());
  checks_.Append(NumberChecks(txtDuration, kDuration));
  checks_.Append(NumberChecks(txtRetrieveDelay, kRetrieveDelay));

  RememberDestination(XDest, host::remembered::kPlmFilename, WhenEmpty::KeepDefault);
  Remember(host::remembered::kPlmDuration, txtDuration, WhenEmpty::KeepDefault);
  Remember(host::remembered::kPlmTag, txtTag, WhenEmpty::KeepDefault);
  Remember(host::remembered::kPlmRetrieveDelay, txtRetrieveDelay, WhenEmpty::KeepDefault);

  ReportChangesOf(fdocCBScenario.Changed);
  ReportChangesOf(XDest.Changed);
  for (ui::TextBox* box : {&txtDuration, &txtRetrieveDelay, &txtTag}) ReportChangesOf(box->Changed);
}

void XKivPlmGen::LoadState() {
  XDest.Init(kMaxNameLength, kExtension);
}

bool XKivPlmGen::IsTabValid(const std::string&) {
  const auto firstProblem = [this] {
    const Hourglass hourglass(*this);  // gone before a message waits for the user
    return checks_.FirstProblem();
  };
  const auto problem = firstProblem();
  if (problem) Refuse(*problem);
  return !problem;
}

void XKivPlmGen::ShowNewStudy() {
  fdocCBScenario.SetDocumentType(Study()->ScenarioType());
  XDest.SetStudyID(Study()->ID());
  XDest.SetPath({});
  XDest.SetFilename(kDefaultName);
  txtDuration.SetText(kDefaultDuration);
  txtTag.SetText(kDefaultTag);
  txtRetrieveDelay.SetText(kDefaultRetrieveDelay);
  ShowRememberedValues();
}

void XKivPlmGen::ShowStoredStudy() {
  const CKivPlmData& data = *SubRecord();
  fdocCBScenario.SetDocumentType(Study()->ScenarioType());
  fdocCBScenario.SelectID(Study()->ScenarioID());
  txtDuration.SetText(std::to_string(Study()->Duration()));
  txtRetrieveDelay.SetText(std::to_string(Study()->RetrieveDelay()));
  XDest.SetStudyID(Study()->ID());
  XDest.SetPath(data.Path());
  XDest.SetFilename(data.DataFile());
  txtTag.SetText(data.Tag());
}

void XKivPlmGen::SaveData() {
  CKivPlmData& data = *SubRecord();
  Study()->SetScenarioID(fdocCBScenario.SelectedID());
  Study()->SetDuration(NumberOr(txtDuration.Text(), Study()->Duration()));
  Study()->SetRetrieveDelay(NumberOr(txtRetrieveDelay.Text(), Study()->RetrieveDelay()));
  fdocCBScenario.Refresh();
  data.SetPath(XDest.Path());
  data.SetDataFile(XDest.Filename());
  data.SetTag(txtTag.Text());
}

ui::LayoutItem XKivPlmGen::Layout() {
  using namespace ui;
  return Column({Form({Field("S&cenario:", {Single(fdocCBScenario), Single(cmdNewScenario)})}),
                 XDest.Layout(),
                 Group(Frame2, {Form({Field("Study &duration:", {Single(txtDuration), Text("minutes")}),
                                      Field("&Retrieve delay:", {Single(txtRetrieveDelay), Text("minutes")}),
                                      Field("Data ta&g:", {Single(txtTag)})})}),
                 Stretch()});
}

}  // namespace kiv
