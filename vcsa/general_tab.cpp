#include "vcsa/general_tab.h"

#include "core/numeric_text.h"
#include "editor/kiv_study_ctls.h"
#include "editor/number_checks.h"
#include "host/constants.h"
#include "vcsa/cell_completion.h"

namespace kiv {

namespace {

constexpr std::int32_t kCellsOfOneEcp = 10;
constexpr std::int32_t kMaxNameLength = 11;  // of the default pattern, expanded
constexpr const char* kExtension = ".vcs";
constexpr const char* kDefaultName = "v$YY$MM$DD$HH$MI";
constexpr const char* kDefaultDuration = "30";
constexpr const char* kDefaultRetrieveDelay = "15";
constexpr std::int32_t kQuarterHour = 15;
const NumberRange kRetrieveDelay = {"Retrieve Delay", 1, 120, "minutes"};

bool IsDuration(const std::string& text) {
  return IsNumberBetween(text, kQuarterHour, 480) && *ParseNumber(text) % kQuarterHour == 0;
}

}  // namespace

XKivVcsGen::XKivVcsGen()
    : TabOf(kClassName, "General"),
      fraCells(this, "fraCells"),
      dlvwCell(&fraCells, "dlvwCell"),
      XDest(this, "XDest"),
      txtDuration(this, "txtDuration"),
      txtRetrieveDelay(this, "txtRetrieveDelay") {
  fraCells.SetCaption("Cells (drag them here from the network tree)");
  dlvwCell.SetEntityType(EntityType::VcsCell);
  dlvwCell.SetMaxRows(kCellsOfOneEcp);
  dlvwCell.SetMultiSelect(true);
  dlvwCell.SetUsePopupMenu(true);
  dlvwCell.AddColumns({SystemColumn("System"),
                       EcpColumn("ECP"),
                       CellColumn("Cell"),
                       {{"Technology", 14}, [](const CEntity& cell) {
                          return Variant(dynamic_cast<const CCell&>(cell).TechType());
                        }}});
  dlvwCell.EntityAdded.Connect([this](const std::shared_ptr<CEntity>& cell) {
    cell->SetID(Required(Study()).ID());
    CompleteCell(*SubRecord(), AsCell(cell));
  });
  txtDuration.SetKeyFilter(MKivStudyCtls::NumericKeyFilter);
  txtRetrieveDelay.SetKeyFilter(MKivStudyCtls::NumericKeyFilter);

  checks_.Add(
      dlvwCell, [this] { return Required(dlvwCell.TheCollection()).Count() > 0; },
      "Please select at least one cell for the study.");
  checks_.Append(XDest.PathChecks());
  checks_.Append(XDest.FilenameChecks());
  checks_.Add(
      txtDuration, [this] { return IsNumeric(txtDuration.Text()); }, "Study Duration must be numeric.");
  checks_.Add(
      txtDuration, [this] { return IsDuration(txtDuration.Text()); },
      "Study Duration must be between 15 and 480 minutes inclusive and \r\n"
      "expressed in increments of quarter hours (15, 30, 45,etc).");
  checks_.Append(NumberChecks(txtRetrieveDelay, kRetrieveDelay));

  RememberDestination(XDest, host::remembered::kVcsFilename);
  Remember(host::remembered::kVcsDuration, txtDuration);
  Remember(host::remembered::kVcsRetrieveDelay, txtRetrieveDelay);

  ReportChangesOf(dlvwCell.CollectionChanged);
  ReportChangesOf(XDest.Changed);
  ReportChangesOf(txtDuration.Changed);
  ReportChangesOf(txtRetrieveDelay.Changed);
}

bool XKivVcsGen::IsTabValid(const std::string& hostText) {
  if (!Tab::IsTabValid(hostText)) return false;
  RememberValues();
  return true;
}

void XKivVcsGen::LoadState() {
  XDest.Init(kMaxNameLength, kExtension);
}

void XKivVcsGen::ShowNewStudy() {
  XDest.SetStudyID(Study()->ID());
  XDest.SetPath({});
  XDest.SetFilename(kDefaultName);
  txtDuration.SetText(kDefaultDuration);
  txtRetrieveDelay.SetText(kDefaultRetrieveDelay);
  ShowRememberedValues();
  dlvwCell.SetTheCollection(SubRecord()->Cells());
  dlvwCell.Display();
}

void XKivVcsGen::ShowStoredStudy() {
  XDest.SetStudyID(Study()->ID());
  txtDuration.SetText(std::to_string(Study()->Duration()));
  txtRetrieveDelay.SetText(std::to_string(Study()->RetrieveDelay()));
  XDest.SetPath(SubRecord()->Path());
  XDest.SetFilename(SubRecord()->DataFile());
  CompleteStoredCells(*SubRecord());
  dlvwCell.SetTheCollection(SubRecord()->Cells());
  dlvwCell.Display();
}

void XKivVcsGen::SaveData() {
  Study()->SetDuration(NumberOr(txtDuration.Text(), Study()->Duration()));
  Study()->SetRetrieveDelay(NumberOr(txtRetrieveDelay.Text(), Study()->RetrieveDelay()));
  SubRecord()->SetPath(XDest.Path());
  SubRecord()->SetDataFile(XDest.Filename());
  SubRecord()->SetCells(dlvwCell.TheCollection());
}

ui::LayoutItem XKivVcsGen::Layout() {
  using namespace ui;
  return Column({Group(fraCells, {Single(dlvwCell)}), XDest.Layout(),
                 Form({Field("Study &duration:", {Single(txtDuration), Text("minutes")}),
                       Field("&Retrieve delay:", {Single(txtRetrieveDelay), Text("minutes")})})});
}

}  // namespace kiv
