#include "plm/cdma_tab.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/numeric_text.h"
#include "editor/kiv_study_ctls.h"
#include "editor/number_checks.h"
#include "host/services.h"
#include "plm/limits.h"
#include "plm/mode_choices.h"
#include "plm/mode_names.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

constexpr std::int32_t kFirstCdmaMode = 7;
constexpr std::ptrdiff_t kMostModes = 2;
constexpr const char* kTooManyModes = "Only two CDMA modes are allowed for one study.";

/// The abbreviation at the start of an entry, with its parentheses.
std::string Abbreviation(const std::string& text) {
  return text.substr(0, text.find(')') + 1);
}

/// Follows the name of each mode.
constexpr std::array<std::string_view, XKivPlmCdma::kModes> kDescriptions = {
    ":  Reverse Link Frame Error Rate",
    ":  Forward Link Frame Error Rate",
    ":  Total output power on the Forward Link",
    ":  Median and delta noise rises",
    ":  Pilot strength of the primary cell before adding a soft or softer handoff leg and immediately "
    "before dropping a leg.",
    ":  Signal-to-noise ratio (Eb/No) set point for the reverse link traffic channel at the primary cell "
    "before a soft or softer handoff leg is added and before it is dropped.",
    ":  Pilot strength of a primary cell for a call lost due to a weak RF link.",
    ":  Signal-to-noise ratio (Eb/No) set point for all reverse link traffic channels for a call lost due "
    "to a weak RF link.",
    ":  Soft handoff period for all traffic channels."};

std::int32_t SelectedValue(const ui::ComboBox& list) {
  if (list.ListIndex() == ui::kNoSelection) return kUnsetNumber;
  return list.Items()[static_cast<std::size_t>(list.ListIndex())].data;
}

}  // namespace

XKivPlmCdma::XKivPlmCdma()
    : ModeTab(kClassName, "CDMA Modes"),
      chkMode(this, "chkMode"),
      obModeSelector(this, "obModeSelector"),
      lblModeSelector(this, "lblModeSelector"),
      lblModeSummary(this, "lblModeSummary"),
      lblDescription(&fraModeDetail, "lblDescription"),
      txtCarrier(&fraModeDetail, "txtCarrier"),
      Label1(&fraModeDetail, "Label1"),
      cboServiceOption(&fraModeDetail, "cboServiceOption"),
      cboGenerationType(&fraModeDetail, "cboGenerationType") {
  UseModes({kFirstCdmaMode,
            {chkMode.begin(), chkMode.end()},
            &obModeSelector,
            {lblModeSelector.begin(), lblModeSelector.end()},
            {lblModeSummary.begin(), lblModeSummary.end()}});
  fraModeDetail.SetCaption("Details");
  Label1[0].SetCaption("Service &option:");
  Label1[1].SetCaption("&Generation type:");
  txtCarrier.SetKeyFilter(NumericKeyFilter);
  ui::ItemList types;
  for (const NumberChoice& type : kGenerationTypes) {
    types.push_back({std::string(type.text), type.number});
  }
  cboGenerationType.SetItems(std::move(types));

  const CheckList carrier = NumberChecks(txtCarrier, {"Carrier", kCarriers.low, kCarriers.high, {}});
  checks_.Append(carrier, [this] { return CurrentIsChecked(); });
  checks_.Add(
      cboServiceOption,
      [this] {
        return !CurrentIsChecked() || ServiceOptions(NumberOf(Current())).empty() ||
               cboServiceOption.ListIndex() != ui::kNoSelection;
      },
      "Service Option is a required value.");
  // A mode without a carrier, or with one out of range, waits in its record until it is completed.
  storable_.Append(carrier, [this] {
    return CurrentIsChecked() && !txtCarrier.Text().empty() && !IsNumeric(txtCarrier.Text());
  });

  UseSettings(
      {SettingOf(txtCarrier.Changed, &CKivPlmMode::Carrier, &CKivPlmMode::SetCarrier),
       SettingOf(cboServiceOption.Changed, &CKivPlmMode::ServiceOption, &CKivPlmMode::SetServiceOption),
       SettingOf(cboGenerationType.Changed, &CKivPlmMode::GenerationType, &CKivPlmMode::SetGenerationType)});
}

void XKivPlmCdma::ShowDetails(const CKivPlmMode& mode) {
  const std::span<const NumberChoice> offered = ServiceOptions(NumberOf(Current()));
  const bool hasGenerationType = HasGenerationType(NumberOf(Current()));
  lblDescription.SetCaption(CurrentMode() + std::string(kDescriptions[Current()]));
  txtCarrier.SetText(mode.Carrier() == kUnsetNumber ? std::string() : std::to_string(mode.Carrier()));

  ui::ItemList options;
  for (const NumberChoice& option : offered) options.push_back({std::string(option.text), option.number});
  const int option = FindItemDataIndex(options, mode.ServiceOption());
  cboServiceOption.SetItems(std::move(options), option);
  cboGenerationType.SetListIndex(hasGenerationType
                                     ? FindItemDataIndex(cboGenerationType.Items(), mode.GenerationType())
                                     : ui::kNoSelection);
  for (ui::Control* control :
       {static_cast<ui::Control*>(&Label1[0]), static_cast<ui::Control*>(&cboServiceOption)}) {
    control->SetEnabled(!offered.empty());
  }
  for (ui::Control* control :
       {static_cast<ui::Control*>(&Label1[1]), static_cast<ui::Control*>(&cboGenerationType)}) {
    control->SetEnabled(hasGenerationType);
  }
}

void XKivPlmCdma::StoreDetails(CKivPlmMode& mode) const {
  mode.SetPlmMode(NumberOf(Current()));
  mode.SetCarrier(NumberOr(txtCarrier.Text(), kUnsetNumber));
  mode.SetServiceOption(SelectedValue(cboServiceOption));
  mode.SetGenerationType(SelectedValue(cboGenerationType));
}

bool XKivPlmCdma::MayCheckMore() {
  if (CheckedCount() <= kMostModes) return true;
  host::TheMessageBoxes().Show(kTooManyModes, host::MessageStyle::Critical,
                               Study()->EditorName() + " Editor");
  return false;
}

void XKivPlmCdma::AddFindings(std::vector<Problem>& findings) {
  ModeTab::AddFindings(findings);
  if (CheckedCount() > kMostModes) findings.push_back({&Selector(Current()), kTooManyModes});
}

std::string XKivPlmCdma::RecordProblem(const CKivPlmMode& mode) const {
  const std::int32_t carrier = mode.Carrier();
  if (carrier != kUnsetNumber && !kCarriers.Hold(carrier)) {
    return RangeText({mode.Key() + " carrier", kCarriers.low, kCarriers.high, {}}) + ".";
  }
  if (!ServiceOptions(mode.PlmMode()).empty() && mode.ServiceOption() == kUnsetNumber) {
    return mode.Key() + " 'Service Option' is a required value.";
  }
  return {};
}

std::string XKivPlmCdma::Summary(const CKivPlmMode& mode, std::size_t index) const {
  std::string summary =
      mode.Carrier() == kUnsetNumber ? "no carrier" : "carrier " + std::to_string(mode.Carrier());
  const std::span<const NumberChoice> offered = ServiceOptions(NumberOf(index));
  const std::string choice = !offered.empty() ? TextOf(offered, mode.ServiceOption())
                             : HasGenerationType(NumberOf(index))
                                 ? TextOf(kGenerationTypes, mode.GenerationType())
                                 : std::string();
  return choice.empty() ? summary : summary + " " + Abbreviation(choice);
}

ui::LayoutItem XKivPlmCdma::Layout() {
  using namespace ui;
  return Column({Row({ListLayout(),
                      Group(fraModeDetail,
                            {Single(lblDescription), Single(lblHint),
                             Form({Field("C&arrier:", {Single(txtCarrier), Text(kCarriers.Words(" to "))}),
                                   Field(Label1[0], {Single(cboServiceOption)}),
                                   Field(Label1[1], {Single(cboGenerationType)})}),
                             Stretch()})}),
                 Stretch()});
}

}  // namespace kiv
