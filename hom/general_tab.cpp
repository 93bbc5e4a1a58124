#include "hom/general_tab.h"

#include "core/numeric_text.h"
#include "editor/kiv_study_ctls.h"
#include "editor/number_checks.h"
#include "host/constants.h"

namespace kiv {

namespace {

constexpr std::int32_t kMaxNameLength = 11;  // of the default pattern, expanded
constexpr const char* kExtension = ".hom";
constexpr const char* kDefaultName = "h$YY$MM$DD$HH$MI";
constexpr const char* kDefaultDuration = "30";
const NumberRange kDuration = {"Study Duration", 10, 1439, "minutes"};  // less than a day

}  // namespace

XKivHomGen::XKivHomGen()
    : TabOf(kClassName, "General"),
      fdocCBScenario(this, "fdocCBScenario"),
      cmdNewScenario(this, "cmdNewScenario"),
      XDest(this, "XDest"),
      txtDuration(this, "txtDuration") {
  fdocCBScenario.OfferNew(cmdNewScenario);
  txtDuration.SetKeyFilter(MKivStudyCtls::NumericKeyFilter);

  checks_.Append(fdocCBScenario.Checks());
  checks_.Append(XDest.PathChecks());
  checks_.Append(XDest.FilenameChecks());
  checks_.Append(NumberChecks(txtDuration, kDuration));

  RememberDestination(XDest, host::remembered::kHomFilename);
  Remember(host::remembered::kHomDuration, txtDuration);

  ReportChangesOf(fdocCBScenario.Changed);
  ReportChangesOf(XDest.Changed);
  ReportChangesOf(txtDuration.Changed);
}

void XKivHomGen::LoadState() {
  XDest.Init(kMaxNameLength, kExtension);
}

void XKivHomGen::ShowNewStudy() {
  fdocCBScenario.SetDocumentType(Study()->ScenarioType());
  XDest.SetStudyID(Study()->ID());
  XDest.SetPath({});
  XDest.SetFilename(kDefaultName);
  txtDuration.SetText(kDefaultDuration);
  ShowRememberedValues();
}

void XKivHomGen::ShowStoredStudy() {
  fdocCBScenario.SetDocumentType(Study()->ScenarioType());
  fdocCBScenario.SelectID(Study()->ScenarioID());
  XDest.SetStudyID(Study()->ID());
  XDest.SetPath(SubRecord()->Path());
  XDest.SetFilename(SubRecord()->DataFile());
  txtDuration.SetText(std::to_string(Study()->Duration()));
}

void XKivHomGen::SaveData() {
  Study()->SetScenarioID(fdocCBScenario.SelectedID());
  Study()->SetDuration(NumberOr(txtDuration.Text(), Study()->Duration()));
  SubRecord()->SetPath(XDest.Path());
  SubRecord()->SetDataFile(XDest.Filename());
}

ui::LayoutItem XKivHomGen::Layout() {
  using namespace ui;
  return Column({Form({Field("S&cenario:", {Single(fdocCBScenario), Single(cmdNewScenario)})}),
                 XDest.Layout(), Form({Field("Study &duration:", {Single(txtDuration), Text("minutes")})}),
                 Stretch()});
}

}  // namespace kiv
