#include "plm/mode_tab.h"

#include <algorithm>
#include <utility>

#include "plm/mode_names.h"

namespace kiv {

ModeTab::ModeTab(std::string name, std::string title)
    : TabOf(std::move(name), std::move(title)),
      fraModeDetail(this, "fraModeDetail"),
      lblHint(&fraModeDetail, "lblHint") {
  lblHint.SetCaption("The study does not run this mode. Check it to add it.");
}

void ModeTab::UseModes(const ModeList& modes) {
  modes_ = modes;
  drafts_.resize(modes_.boxes.size());
  for (std::size_t i = 0; i < modes_.boxes.size(); ++i) {
    std::string caption = NameOf(i);
    // The last digit of the number is the mnemonic: no two modes of a tab share it.
    const auto number = std::to_string(NumberOf(i));
    caption.insert(caption.find(number) + number.size() - 1, "&");
    modes_.names[i].SetCaption(NameOf(i));
    modes_.boxes[i].SetCaption(std::move(caption));
    modes_.boxes[i].Changed.Connect([this, i] { ClickBox(i); });
    modes_.selector->Options()[i].SetCaption("Details");
  }
  modes_.selector->SetIndex(static_cast<int>(current_));
  modes_.selector->Changed.Connect([this] { ChooseMode(); });
}

void ModeTab::UseSettings(const std::vector<ModeSetting>& settings) {
  for (const ModeSetting& setting : settings) {
    setting.changed->Connect([this, number = settings_.size()] { Touch(number); });
    settings_.push_back(setting);
  }
}

std::int32_t ModeTab::NumberOf(std::size_t index) const {
  return modes_.firstNumber + static_cast<std::int32_t>(index);
}

std::string ModeTab::NameOf(std::size_t index) const {
  return MKivStudyCtls::ModeName(NumberOf(index));
}

std::ptrdiff_t ModeTab::CheckedCount() const {
  return std::count_if(modes_.boxes.begin(), modes_.boxes.end(),
                       [](const ui::CheckBox& box) { return box.Checked(); });
}

bool ModeTab::Owns(const CKivPlmMode& mode) const {
  return mode.PlmMode() >= NumberOf(0) && mode.PlmMode() < NumberOf(modes_.boxes.size());
}

void ModeTab::ShowStoredStudy() {
  for (const auto& mode : *SubRecord()) {
    if (Owns(*mode)) mode->SetChecked(true);
  }
  ShowModes();
}

void ModeTab::ShowModes() {
  const FlagGuard filling = HoldReports();
  ForgetDetails();
  drafts_.assign(drafts_.size(), {});
  for (std::size_t i = 0; i < modes_.boxes.size(); ++i) {
    modes_.boxes[i].SetChecked(SubRecord()->ReturnMode(NameOf(i))->Checked());
  }
  MakeCurrent(0);
  for (std::size_t i = 0; i < modes_.boxes.size(); ++i) ShowState(i);
}

void ModeTab::MakeCurrent(std::size_t index) {
  const FlagGuard filling = HoldReports();
  current_ = index;
  modes_.selector->SetIndex(static_cast<int>(index));
  const Draft& draft = drafts_[index];
  CKivPlmMode shown = *SubRecord()->ReturnMode(CurrentMode());
  CopyTouched(draft, draft.values, shown);
  ShowDetails(shown);
  ShowState(index);
}

/// Says in a few words what the study does with a mode.
void ModeTab::ShowState(std::size_t index) {
  const bool checked = modes_.boxes[index].Checked();
  const bool isCurrent = index == current_;
  if (isCurrent) {
    lblHint.SetVisible(!checked);
  }
  if (!checked) {
    modes_.summaries[index].SetCaption({});
  } else if (isCurrent && !drafts_[index].touched.empty()) {
    CKivPlmMode shown;
    StoreDetails(shown);
    modes_.summaries[index].SetCaption(Summary(shown, index));
  } else {
    modes_.summaries[index].SetCaption(Summary(*SubRecord()->ReturnMode(NameOf(index)), index));
  }
}

/// The user set something of the current mode.
void ModeTab::Touch(std::size_t setting) {
  if (Filling() || !Study()) return;
  drafts_[current_].touched.insert(setting);
  ReportChange();
  ShowState(current_);
}

void ModeTab::CopyTouched(const Draft& draft, const CKivPlmMode& from, CKivPlmMode& to) const {
  for (const std::size_t setting : draft.touched) settings_[setting].copy(from, to);
}

/// Takes the shown details into the study. Those of a mode that the study does not run wait in its draft.
void ModeTab::StoreCurrent() {
  CKivPlmData& data = *SubRecord();
  const std::string name = CurrentMode();
  const auto mode = data.ReturnMode(name);
  mode->SetChecked(CurrentIsChecked());
  if (!mode->Checked()) return KeepDraft();
  mode->SetID(Study()->ID());
  mode->SetPlmMode(NumberOf(current_));
  StoreDetails(*mode);
  data.RemoveMode(name);
  data.AddMode(name, mode);
  drafts_[current_] = {};
}

void ModeTab::KeepDraft() {
  Draft& draft = drafts_[current_];
  CKivPlmMode shown;
  StoreDetails(shown);
  CopyTouched(draft, shown, draft.values);
}

/// Whether the shown details meet these rules; tells the first problem otherwise.
bool ModeTab::Meets(const CheckList& rules) {
  const auto problem = rules.FirstProblem();
  if (problem) Refuse(*problem);
  return !problem;
}

void ModeTab::ChooseMode() {
  if (Filling() || !Study()) return;
  const int wanted = modes_.selector->Index();
  {
    // The current mode stays the chosen one until it may be left.
    const FlagGuard filling = HoldReports();
    modes_.selector->SetIndex(static_cast<int>(current_));
  }
  if (wanted == ui::kNoSelection || !Meets(checks_)) return;
  const std::size_t before = current_;
  StoreCurrent();
  MakeCurrent(static_cast<std::size_t>(wanted));
  ShowState(before);
}

void ModeTab::ClickBox(std::size_t index) {
  if (Filling() || !Study()) return;
  if (modes_.boxes[index].Checked()) {
    CheckMode(index);
  } else {
    UncheckMode(index);
  }
}

void ModeTab::CheckMode(std::size_t index) {
  // What was shown of an unchecked mode breaks no rule.
  if (!MayCheckMore() || (index != current_ && !Meets(RulesBeforeChecking()))) {
    const FlagGuard filling = HoldReports();
    modes_.boxes[index].SetChecked(false);
    return;
  }
  const std::size_t before = current_;
  if (index == current_) {
    KeepDraft();
  } else {
    StoreCurrent();
  }
  CKivPlmData& data = *SubRecord();
  const std::string name = NameOf(index);
  const auto mode = data.ReturnMode(name);
  if (!data.Modes()->Contains(name)) StartMode(*mode, index);
  CopyTouched(drafts_[index], drafts_[index].values, *mode);
  drafts_[index] = {};
  mode->SetChecked(true);
  mode->SetPlmMode(NumberOf(index));
  data.AddMode(name, mode);
  MakeCurrent(index);
  ShowState(before);
  ReportChange();
}

void ModeTab::UncheckMode(std::size_t index) {
  SubRecord()->ReturnMode(NameOf(index))->SetChecked(false);
  ShowState(index);
  ReportChange();
}

bool ModeTab::Validate() {
  if (!Meets(checks_)) return false;
  StoreCurrent();
  const std::vector<Problem> problems = RecordProblems();
  if (!problems.empty()) Refuse(problems.front());
  return problems.empty();
}

void ModeTab::AddProblems(std::vector<Problem>& problems) const {
  for (Problem& problem : RecordProblems()) {
    // The shown details are newer than the record.
    if (problem.control != &Selector(current_)) problems.push_back(std::move(problem));
  }
}

std::size_t ModeTab::IndexOf(const CKivPlmMode& mode) const {
  return static_cast<std::size_t>(mode.PlmMode() - modes_.firstNumber);
}

/// What is wrong with the records of the checked modes, in the order of the study's collection.
std::vector<Problem> ModeTab::RecordProblems() const {
  std::vector<Problem> problems;
  for (const auto& mode : *SubRecord()) {
    if (!mode->Checked() || !Owns(*mode)) continue;
    std::string message = RecordProblem(*mode);
    if (!message.empty()) problems.push_back({&Selector(IndexOf(*mode)), std::move(message)});
  }
  return problems;
}

bool ModeTab::Represents(std::string_view field) const {
  return field == CKivPlmData::kModeList || Tab::Represents(field);
}

/// Whether the page shows details of a mode that its record does not have yet.
bool ModeTab::ShowsNewer(const CKivPlmMode& mode) const {
  return mode.Key() == CurrentMode() && !drafts_[current_].touched.empty();
}

std::optional<Problem> ModeTab::FindingOf(const RecordFault& fault) const {
  if (fault.field != CKivPlmData::kModeList) return Tab::FindingOf(fault);
  const auto mode = SubRecord()->ReturnMode(MKivStudyCtls::ModeName(fault.number));
  if (!mode->Checked() || !Owns(*mode) || ShowsNewer(*mode)) return std::nullopt;
  return Problem{&Selector(IndexOf(*mode)), fault.text};
}

void ModeTab::AddFindings(std::vector<Problem>& findings) {
  for (const auto& mode : *SubRecord()) {
    if (!mode->Checked() || !Owns(*mode) || ShowsNewer(*mode)) continue;
    ui::Control* selector = &Selector(IndexOf(*mode));
    std::string message = RecordFinding(*mode);
    if (!message.empty() && std::ranges::find(findings, selector, &Problem::control) == findings.end()) {
      findings.push_back({selector, std::move(message)});
    }
  }
}

ui::LayoutItem ModeTab::ListLayout() {
  std::vector<ui::LayoutItem> rows;
  for (std::size_t i = 0; i < modes_.boxes.size(); ++i) {
    rows.push_back(
        ui::Row({ui::Single(modes_.boxes[i]), ui::Single(modes_.selector->Options()[i]),
                 ui::Single(modes_.names[i]), ui::Row({ui::Single(modes_.summaries[i]), ui::Stretch()})}));
  }
  return ui::Column({ui::Grid(std::move(rows)), ui::Stretch()});
}

}  // namespace kiv
