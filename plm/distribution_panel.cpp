#include "plm/distribution_panel.h"

#include <array>

#include "core/numeric_text.h"
#include "editor/kiv_study_ctls.h"
#include "host/services.h"
#include "plm/limits.h"
#include "plm/mode_names.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

constexpr std::size_t kExpandOption = 0;
constexpr std::size_t kRestrictOption = 1;

bool Holds(const NumberLimits& limits, const std::optional<std::int64_t>& number) {
  return limits.Hold(number.value_or(0));
}

}  // namespace

/// The numbers of the boxes or of a stored mode; what is no number counts as 0 in comparisons.
struct DistributionPanel::Numbers {
  std::optional<std::int64_t> amps;
  std::optional<std::int64_t> tdma;
  std::optional<std::int64_t> total;
  std::optional<std::int64_t> from;
  std::optional<std::int64_t> to;

  bool ExceedTotal() const { return amps.value_or(0) + tdma.value_or(0) > total.value_or(0); }
  bool RunBackwards() const { return from.value_or(0) > to.value_or(0); }
};

/// Which box stands for which number, and where the mode keeps it.
struct DistributionPanel::NumberField {
  ui::TextBox DistributionPanel::*box;
  std::optional<std::int64_t> Numbers::*number;
  std::int32_t DistributionDefaults::*standard;
  std::int32_t (CKivPlmMode::*get)() const;
  void (CKivPlmMode::*set)(std::int32_t);

  static std::span<const NumberField> All() {
    using Panel = DistributionPanel;
    using Default = DistributionDefaults;
    using Mode = CKivPlmMode;
    static constexpr std::array<NumberField, 5> fields = {{
        {&Panel::txtAmps, &Numbers::amps, &Default::amps, &Mode::AmpsDistribution,
         &Mode::SetAmpsDistribution},
        {&Panel::txtTdma, &Numbers::tdma, &Default::tdma, &Mode::TdmaDistribution,
         &Mode::SetTdmaDistribution},
        {&Panel::txtTotal, &Numbers::total, &Default::total, &Mode::TotalDistribution,
         &Mode::SetTotalDistribution},
        {&Panel::txtFrom, &Numbers::from, &Default::from, &Mode::RangeFrom, &Mode::SetRangeFrom},
        {&Panel::txtTo, &Numbers::to, &Default::to, &Mode::RangeTo, &Mode::SetRangeTo},
    }};
    return fields;
  }
};

/// A rule of the automatic method; its message follows the mode's name.
struct DistributionPanel::Rule {
  ui::TextBox DistributionPanel::*box;
  bool (*passes)(const Numbers&);
  std::string message;

  static std::span<const Rule> All() {
    using Panel = DistributionPanel;
    static const std::string most = std::to_string(kSelectedChannels.high);
    static const std::string countRange =
        " must be between " + kSelectedChannels.Words(" and ") + " inclusive.";
    static const std::string numberRange =
        " channels cannot be less than " + kChannelNumbers.Words(" or greater than ") + " inclusive.";
    static const Rule rules[] = {
        {&Panel::txtAmps, [](const Numbers& n) { return Holds(kSelectedChannels, n.amps); },
         "  'AMPS Channels'" + countRange},
        {&Panel::txtTdma, [](const Numbers& n) { return Holds(kSelectedChannels, n.tdma); },
         "  'TDMA Channels'" + countRange},
        {&Panel::txtTotal, [](const Numbers& n) { return Holds(kSelectedChannels, n.total); },
         "  'Total to Select'" + countRange},
        {&Panel::txtAmps, [](const Numbers& n) { return n.amps.has_value(); },
         "  'AMPS Channels' must be numeric."},
        {&Panel::txtTdma, [](const Numbers& n) { return n.tdma.has_value(); },
         "  'TDAMA Channels' must be numeric."},
        {&Panel::txtTotal, [](const Numbers& n) { return n.total.has_value(); },
         "  'Total to Select' must be numeric."},
        {&Panel::txtTotal, [](const Numbers& n) { return n.total.value_or(0) <= kSelectedChannels.high; },
         "  'Total Channels to Select' cannot be greater than " + most + "."},
        {&Panel::txtFrom, [](const Numbers& n) { return n.from.has_value(); },
         "  'From' channels must be numeric."},
        {&Panel::txtTo, [](const Numbers& n) { return n.to.has_value(); },
         "  'To' channels must be numeric."},
        {&Panel::txtFrom, [](const Numbers& n) { return Holds(kChannelNumbers, n.from); },
         "  'From'" + numberRange},
        {&Panel::txtFrom, [](const Numbers& n) { return !n.RunBackwards(); },
         "  'From' channels cannot be greater than 'To' channels."},
        {&Panel::txtTo, [](const Numbers& n) { return Holds(kChannelNumbers, n.to); },
         "  'To'" + numberRange},
        {&Panel::txtAmps, [](const Numbers& n) { return !n.ExceedTotal(); },
         "  'AMPS and TDMA Channels' cannot be greater than 'Total to Select'."},
        {&Panel::txtAmps, [](const Numbers& n) { return n.amps.value_or(0) != 0 || n.tdma.value_or(0) != 0; },
         "  'AMPS and TDMA Channels' cannot both be zero."},
    };
    return rules;
  }
};

DistributionPanel::DistributionPanel(Container* parent, std::int32_t number, const DefaultsWording& wording)
    : MethodPanel(parent, number),
      fraAutomatic(this, "fraAutomatic"),
      txtAmps(&fraAutomatic, "txtAmps"),
      txtTdma(&fraAutomatic, "txtTdma"),
      txtTotal(&fraAutomatic, "txtTotal"),
      optAuto(&fraAutomatic, "optAuto"),
      cboSort1(&fraAutomatic, "cboSort1"),
      cboSort2(&fraAutomatic, "cboSort2"),
      txtFrom(&fraAutomatic, "txtFrom"),
      txtTo(&fraAutomatic, "txtTo"),
      chkAce(&fraAutomatic, "chkAce"),
      cmdDefaults(&fraAutomatic, "cmdDefaults"),
      wording_(wording) {
  fraAutomatic.SetCaption("Automatic Selection");
  optAuto[kExpandOption].SetCaption("E&xpand");
  optAuto[kRestrictOption].SetCaption("&Restrict");
  chkAce.SetCaption("Exclude A&CE");
  cmdDefaults.SetCaption("Restore Defa&ults");
  AddRules();

  using Mode = CKivPlmMode;
  for (const NumberField& field : NumberField::All()) {
    (this->*field.box).SetKeyFilter(NumericKeyFilter);
    AddSetting(SettingOf((this->*field.box).Changed, field.get, field.set));
  }
  AddSetting(SettingOf(optAuto.Changed, &Mode::DistributionMethod, &Mode::SetDistributionMethod));
  AddSetting(SettingOf(cboSort1.Changed, &Mode::SortBy, &Mode::SetSortBy));
  AddSetting(SettingOf(cboSort2.Changed, &Mode::SelectFromList, &Mode::SetSelectFromList));
  AddSetting(SettingOf(chkAce.Changed, &Mode::ExcludeAce, &Mode::SetExcludeAce));
  cmdDefaults.Clicked.Connect([this] {
    CKivPlmMode defaults;
    DefaultsToData(defaults);
    ShowDistribution(defaults);
  });
}

void DistributionPanel::AddRules() {
  CheckList rules;
  for (const Rule& rule : Rule::All()) {
    rules.Add(
        this->*rule.box, [this, &rule] { return rule.passes(ShownNumbers()); },
        ModeName(Number()) + rule.message);
  }
  checks_.Append(rules, [this] { return Uses(selection::kAutomatic); });
}

DistributionPanel::Numbers DistributionPanel::ShownNumbers() const {
  Numbers numbers;
  for (const NumberField& field : NumberField::All()) {
    numbers.*field.number = ParseNumber((this->*field.box).Text());
  }
  return numbers;
}

void DistributionPanel::InitControls() {
  FillWords(cboSort1, kSortings);
  FillWords(cboSort2, kListEnds);
  CheckDefaults();
  MethodPanel::InitControls();
}

void DistributionPanel::CheckDefaults() const {
  Numbers numbers;
  for (const NumberField& field : NumberField::All()) numbers.*field.number = defaults_.*field.standard;
  const std::string message = numbers.ExceedTotal()                                ? wording_.tooMany
                              : numbers.RunBackwards()                             ? wording_.fromBehindTo
                              : numbers.total.value_or(0) > kSelectedChannels.high ? wording_.totalTooLarge
                                                                                   : std::string();
  if (!message.empty()) host::ShowMessage(ModeName(Number()) + message);
}

void DistributionPanel::DefaultsToData(CKivPlmMode& mode) const {
  MethodPanel::DefaultsToData(mode);
  for (const NumberField& field : NumberField::All()) (mode.*field.set)(defaults_.*field.standard);
  mode.SetDistributionMethod(defaults_.distributionMethod);
  mode.SetSortBy(defaults_.sortBy);
  mode.SetSelectFromList(defaults_.selectFromList);
  mode.SetExcludeAce(defaults_.excludeAce);
}

void DistributionPanel::DataToCtls(const CKivPlmMode& mode) {
  MethodPanel::DataToCtls(mode);
  ShowDistribution(mode);
}

void DistributionPanel::ShowDistribution(const CKivPlmMode& mode) {
  for (const NumberField& field : NumberField::All()) {
    const std::int32_t number = (mode.*field.get)();
    (this->*field.box).SetText(number == kUnsetNumber ? std::string() : std::to_string(number));
  }
  optAuto.SetIndex(mode.DistributionMethod() == kExpand     ? static_cast<int>(kExpandOption)
                   : mode.DistributionMethod() == kRestrict ? static_cast<int>(kRestrictOption)
                                                            : ui::kNoSelection);
  SelectWord(cboSort1, kSortings, mode.SortBy());
  SelectWord(cboSort2, kListEnds, mode.SelectFromList());
  chkAce.SetChecked(YNToCheckValue(mode.ExcludeAce()) != 0);
}

void DistributionPanel::CtlsToData(CKivPlmMode& mode) const {
  MethodPanel::CtlsToData(mode);
  for (const NumberField& field : NumberField::All()) {
    (mode.*field.set)(NumberOr((this->*field.box).Text(), 0));
  }
  const bool expand = optAuto.Index() == static_cast<int>(kExpandOption);
  mode.SetDistributionMethod(std::string(expand ? kExpand : kRestrict));
  mode.SetSortBy(SelectedWord(cboSort1, kSortings, mode.SortBy()));
  mode.SetSelectFromList(SelectedWord(cboSort2, kListEnds, mode.SelectFromList()));
  mode.SetExcludeAce(CheckValueToYN(chkAce.Value()));
}

void DistributionPanel::HandleMethodChange() {
  MethodPanel::HandleMethodChange();
  fraAutomatic.SetEnabled(Uses(selection::kAutomatic));
}

std::optional<Problem> DistributionPanel::StoredProblem(const CKivPlmMode& mode) {
  if (mode.SelectionMethod() != selection::kAutomatic.word) return MethodPanel::StoredProblem(mode);
  Numbers numbers;
  for (const NumberField& field : NumberField::All()) {
    const std::int32_t number = (mode.*field.get)();
    if (number != kUnsetNumber) numbers.*field.number = number;
  }
  for (const Rule& rule : Rule::All()) {
    if (!rule.passes(numbers)) {
      return Problem{&(this->*rule.box), ModeName(Number()) + rule.message};
    }
  }
  return std::nullopt;
}

std::string DistributionPanel::Summary(const CKivPlmMode& mode) const {
  if (mode.SelectionMethod() != selection::kAutomatic.word) return MethodPanel::Summary(mode);
  const auto count = [](std::int32_t number) { return std::to_string(number == kUnsetNumber ? 0 : number); };
  return count(mode.AmpsDistribution()) + " AMPS + " + count(mode.TdmaDistribution()) + " TDMA";
}

ui::LayoutItem DistributionPanel::Layout() {
  using namespace ui;
  const auto count = [] { return Text(kSelectedChannels.Words(" to ")); };
  return Column(
      {MethodLayout(),
       Row({Group(fraAutomatic,
                  {Form({Field("&AMPS Channels:", {Single(txtAmps), count()}),
                         Field("T&DMA Channels:", {Single(txtTdma), count()}),
                         Field("Total to Se&lect:", {Single(txtTotal), count()}),
                         Field("", {Single(optAuto[kExpandOption]), Single(optAuto[kRestrictOption])}),
                         Field("Sort &by:", {Single(cboSort1), Stretch()}),
                         Field("Sel&ect:", {Single(cboSort2), Stretch()}),
                         Field("Cha&nnels from:", {Single(txtFrom), Text("to"), Single(txtTo)})}),
                   Row({Single(chkAce), Stretch(), Single(cmdDefaults)}), Stretch()}),
            XChannelList1.Layout()})});
}

}  // namespace kiv
