#include "plm/tdma_tab.h"

#include <string>

#include "plm/limits.h"

namespace kiv {

namespace {

constexpr std::int32_t kFirstTdmaMode = 1;

const std::string kAtMost = "cannot be greater than " + std::to_string(kSelectedChannels.high) + ".";

// The two panels word the same rules differently.
const DefaultsWording kMode2Wording = {"  'AMPS and TDMA channels' cannot be greater than total channels.",
                                       "  'From' channels cannot be greater than 'To' channels.",
                                       "  'Total Channels to Select' " + kAtMost};
const DefaultsWording kMode5Wording = {"  'AMPS and TDMA Channels' cannot be greater than 'Total to Select'.",
                                       "  'From' channels cannot be greater than 'To' channels.",
                                       " 'Total Channels to Select' " + kAtMost};

}  // namespace

XKivPlmTdma::XKivPlmTdma()
    : ModeTab(kClassName, "TDMA/AMPS Modes"),
      chkMode(this, "chkMode"),
      obModeSelector(this, "obModeSelector"),
      lblModeSelector(this, "lblModeSelector"),
      lblModeSummary(this, "lblModeSummary"),
      XMode1(&fraModeDetail, 1),
      XMode2(&fraModeDetail, 2, kMode2Wording),
      XMode3(&fraModeDetail, 3),
      XMode4(&fraModeDetail, 4),
      XMode5(&fraModeDetail, 5, kMode5Wording),
      XMode6(&fraModeDetail, 6, selection::kNoMethodWord),
      panels_{&XMode1, &XMode2, &XMode3, &XMode4, &XMode5, &XMode6} {
  UseModes({kFirstTdmaMode,
            {chkMode.begin(), chkMode.end()},
            &obModeSelector,
            {lblModeSelector.begin(), lblModeSelector.end()},
            {lblModeSummary.begin(), lblModeSummary.end()}});
  for (std::size_t i = 0; i < kModes; ++i) {
    checks_.Append(panels_[i]->Checks(), [this, i] { return Current() == i && CurrentIsChecked(); });
    UseSettings(panels_[i]->Settings());
    if (i != Current()) panels_[i]->Hide();
  }
}

void XKivPlmTdma::PrepareControls() {
  for (ModePanel* panel : panels_) panel->InitControls();
}

void XKivPlmTdma::ForgetDetails() {
  for (ModePanel* panel : panels_) panel->Forget();
}

void XKivPlmTdma::ShowDetails(const CKivPlmMode& mode) {
  fraModeDetail.SetCaption(CurrentMode());
  for (std::size_t i = 0; i < kModes; ++i) {
    if (i != Current()) panels_[i]->Hide();
  }
  panels_[Current()]->ShowAgain(mode);
  panels_[Current()]->Reveal();
}

void XKivPlmTdma::StoreDetails(CKivPlmMode& mode) const {
  panels_[Current()]->CtlsToData(mode);
}

void XKivPlmTdma::StartMode(CKivPlmMode& mode, std::size_t index) const {
  panels_[index]->DefaultsToData(mode);
}

/// Only the mode whose panel is shown holds a save up.
std::string XKivPlmTdma::RecordProblem(const CKivPlmMode& mode) const {
  return StoredProblem(mode, true);
}

std::string XKivPlmTdma::RecordFinding(const CKivPlmMode& mode) const {
  return StoredProblem(mode, false);
}

std::string XKivPlmTdma::StoredProblem(const CKivPlmMode& mode, bool ofVisiblePanel) const {
  ModePanel& panel = *panels_[static_cast<std::size_t>(mode.PlmMode() - kFirstTdmaMode)];
  if (panel.Visible() != ofVisiblePanel) return {};
  const auto problem = panel.StoredProblem(mode);
  return problem ? problem->message : std::string();
}

std::string XKivPlmTdma::Summary(const CKivPlmMode& mode, std::size_t index) const {
  return panels_[index]->Summary(mode);
}

ui::LayoutItem XKivPlmTdma::Layout() {
  using namespace ui;
  std::vector<LayoutItem> details = {Single(lblHint)};
  for (ModePanel* panel : panels_) details.push_back(panel->Layout());
  details.push_back(Stretch());
  return Column({Row({ListLayout(), Group(fraModeDetail, std::move(details))}), Stretch()});
}

}  // namespace kiv
