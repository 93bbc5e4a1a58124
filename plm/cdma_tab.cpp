#include "plm/cdma_tab.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/numeric_text.h"
#include "editor/kiv_study_ctls.h"
#include "editor/number_checks.h"
#include "host/services.h"
#include "plm/limits.h"
#include "plm/mode_names.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

constexpr std::int32_t kFirstCdmaMode = 7;
constexpr std::ptrdiff_t kMostModes = 2;

/// An entry of a list and the number that is stored for it.
struct ValueText {
  std::int32_t value;
  std::string_view text;
};

constexpr std::array kServiceOptions = std::to_array<ValueText>({
    {0, "(8k) 2G Voice 8K RC1"},
    {1, "(13k) 2G Voice 13K RC2"},
    {2, "(EVRC) 2G Voice EVRC RC1"},
    {3, "(3G8k) 3G1X Voice 8K RC3"},
    {4, "(3G13k) 3G1X Voice 13K RC4"},
    {5, "(3EVRC) 3G1X Voice EVRC RC3"},
    {6, "(9R3) 3G1X Data FCH 9.6 kbps RC3"},
    {7, "(19R3) 3G1X Data SCH 19.2 kbps RC3"},
    {8, "(38R3) 3G1X Data SCH 38.4 kbps RC3"},
    {9, "(76R3) 3G1X Data SCH 76.8 kbps RC3"},
    {10, "(153R3) 3G1X Data SCH 153.6 kbps RC3"},
    {11, "(19R4) 3G1X Data SCH 19.2 kbps RC4"},
    {12, "(38R4) 3G1X Data SCH 38.4 kbps RC4"},
    {13, "(76R4) 3G1X Data SCH 76.8 kbps RC4"},
    {14, "(153R4) 3G1X Data SCH 153.6 kbps RC4"},
    {15, "(13kR5) 3G1X Voice 13K RC5"},
    {17, "(2GSMV) 2G Voice Selectable Mode Vocoder RC1"},
    {18, "(3GSMV) 3G Voice Selectable Mode Vocoder RC3"},
});

// What each mode offers, in the order of its list.
constexpr std::int32_t kFer1Options[] = {0, 1, 2, 17, 3, 4, 5, 18, 6, 7, 8, 9, 10};
constexpr std::int32_t kFer2Options[] = {1, 7, 8, 9, 10, 11, 12, 13, 14, 15};

constexpr std::array kGenerationTypes = std::to_array<ValueText>({
    {0, "(2Gv) 2G Voice"},
    {1, "(2G3G) 2G and 3G1X Calls"},
    {2, "(3Gv) 3G1X Voice"},
    {3, "(3Gd) 3G1X Data"},
});

std::string TextOf(std::span<const ValueText> texts, std::int32_t value) {
  const auto found = std::find_if(texts.begin(), texts.end(),
                                  [value](const ValueText& text) { return text.value == value; });
  return found == texts.end() ? std::string() : std::string(found->text);
}

/// The abbreviation at the start of an entry, with its parentheses.
std::string Abbreviation(const std::string& text) {
  return text.substr(0, text.find(')') + 1);
}

std::int32_t SelectedValue(const ui::ComboBox& list) {
  if (list.ListIndex() == ui::kNoSelection) return kUnsetNumber;
  return list.Items()[static_cast<std::size_t>(list.ListIndex())].data;
}

}  // namespace

struct XKivPlmCdma::Mode {
  std::string_view description;  ///< follows the mode's name
  std::span<const std::int32_t> serviceOptions = {};
  bool hasGenerationType = false;

  static std::span<const Mode> All() {
    static constexpr std::array<Mode, kModes> modes = {{
        {":  Reverse Link Frame Error Rate", kFer1Options},
        {":  Forward Link Frame Error Rate", kFer2Options},
        {":  Total output power on the Forward Link"},
        {":  Median and delta noise rises"},
        {":  Pilot strength of the primary cell before adding a soft or softer handoff leg and immediately "
         "before dropping a leg.",
         {},
         true},
        {":  Signal-to-noise ratio (Eb/No) set point for the reverse link traffic channel at the primary "
         "cell "
         "before a soft or softer handoff leg is added and before it is dropped.",
         {},
         true},
        {":  Pilot strength of a primary cell for a call lost due to a weak RF link.", {}, true},
        {":  Signal-to-noise ratio (Eb/No) set point for all reverse link traffic channels for a call lost "
         "due "
         "to a weak RF link.",
         {},
         true},
        {":  Soft handoff period for all traffic channels.", {}, true},
    }};
    return modes;
  }
};

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
  for (const ValueText& type : kGenerationTypes) types.push_back({std::string(type.text), type.value});
  cboGenerationType.SetItems(std::move(types));

  const CheckList carrier = NumberChecks(txtCarrier, {"Carrier", kCarriers.low, kCarriers.high, {}});
  checks_.Append(carrier, [this] { return CurrentIsChecked(); });
  checks_.Add(
      cboServiceOption,
      [this] {
        return !CurrentIsChecked() || CurrentKind().serviceOptions.empty() ||
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

const XKivPlmCdma::Mode& XKivPlmCdma::CurrentKind() const {
  return Mode::All()[Current()];
}

void XKivPlmCdma::ShowDetails(const CKivPlmMode& mode) {
  const Mode& kind = CurrentKind();
  lblDescription.SetCaption(CurrentMode() + std::string(kind.description));
  txtCarrier.SetText(mode.Carrier() == kUnsetNumber ? std::string() : std::to_string(mode.Carrier()));

  ui::ItemList options;
  for (const std::int32_t value : kind.serviceOptions) {
    options.push_back({TextOf(kServiceOptions, value), value});
  }
  const int option = FindItemDataIndex(options, mode.ServiceOption());
  cboServiceOption.SetItems(std::move(options), option);
  cboGenerationType.SetListIndex(kind.hasGenerationType
                                     ? FindItemDataIndex(cboGenerationType.Items(), mode.GenerationType())
                                     : ui::kNoSelection);
  for (ui::Control* control :
       {static_cast<ui::Control*>(&Label1[0]), static_cast<ui::Control*>(&cboServiceOption)}) {
    control->SetEnabled(!kind.serviceOptions.empty());
  }
  for (ui::Control* control :
       {static_cast<ui::Control*>(&Label1[1]), static_cast<ui::Control*>(&cboGenerationType)}) {
    control->SetEnabled(kind.hasGenerationType);
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
  host::TheMessageBoxes().Show("Only two CDMA modes are allowed for one study.", host::MessageStyle::Critical,
                               Study()->EditorName() + " Editor");
  return false;
}

std::string XKivPlmCdma::RecordProblem(const CKivPlmMode& mode, Records) const {
  const std::int32_t carrier = mode.Carrier();
  if (carrier != kUnsetNumber && !kCarriers.Hold(carrier)) {
    return RangeText({mode.Key() + " carrier", kCarriers.low, kCarriers.high, {}}) + ".";
  }
  if (!Mode::All()[static_cast<std::size_t>(mode.PlmMode() - kFirstCdmaMode)].serviceOptions.empty() &&
      mode.ServiceOption() == kUnsetNumber) {
    return mode.Key() + " 'Service Option' is a required value.";
  }
  return {};
}

std::string XKivPlmCdma::Summary(const CKivPlmMode& mode, std::size_t index) const {
  std::string summary =
      mode.Carrier() == kUnsetNumber ? "no carrier" : "carrier " + std::to_string(mode.Carrier());
  const Mode& kind = Mode::All()[index];
  const std::string choice = !kind.serviceOptions.empty() ? TextOf(kServiceOptions, mode.ServiceOption())
                             : kind.hasGenerationType     ? TextOf(kGenerationTypes, mode.GenerationType())
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
