#include "hom/detail_tab.h"

#include <algorithm>
#include <array>
#include <span>

#include "editor/kiv_study_ctls.h"

namespace kiv {

namespace {

constexpr const char* kSelectAll = "Select All";
constexpr const char* kClearAll = "Clear All";

using namespace hom_mode;

enum class Access { Locked, Usable };

}  // namespace

/// One group of boxes with its button.
struct XKivHomDetail::BoxGroup {
  std::span<ui::CheckBox> boxes;
  ui::Button& button;

  void Set(bool checked) const {
    for (ui::CheckBox& box : boxes) box.SetChecked(checked);
  }
  void Set(bool checked, Access access) const {
    Set(checked);
    SetAccess(access);
  }
  void SetAccess(Access access) const {
    for (ui::CheckBox& box : boxes) box.SetEnabled(access == Access::Usable);
    button.SetEnabled(access == Access::Usable);
  }
  bool IsUsable() const { return boxes[0].Enabled(); }
  auto CheckedCount() const {
    return std::count_if(boxes.begin(), boxes.end(), [](const ui::CheckBox& box) { return box.Checked(); });
  }
  bool AllChecked() const { return CheckedCount() == std::ssize(boxes); }
};

/// Which box stands for which handoff type of the record.
struct XKivHomDetail::BoxField {
  enum class Group { Amps, Tdma, Cdma };

  Group group;
  std::size_t index;
  const char* caption;
  const std::string& (CKivHomData::*get)() const;
  void (CKivHomData::*set)(std::string);

  static std::span<const BoxField> All() {
    using Data = CKivHomData;
    using enum Group;
    static constexpr std::array<BoxField, 1 + kTdmaBoxes + kCdmaBoxes> fields = {{
        {Amps, 0, "Handoff to &AMPS", &Data::ToAmps, &Data::SetToAmps},
        {Tdma, 0, "Handoff from AMPS", &Data::FromAmps, &Data::SetFromAmps},
        {Tdma, 1, "Handoff to TDMA/AMPS", &Data::ToTdmaAmps, &Data::SetToTdmaAmps},
        {Tdma, 2, "Handoff to TDMA", &Data::ToTdma, &Data::SetToTdma},
        {Tdma, 3, "Semi-soft", &Data::SemiSoft, &Data::SetSemiSoft},
        {Cdma, 0, "Hard", &Data::Hard, &Data::SetHard},
        {Cdma, 1, "Handoff to CDMA/AMPS", &Data::ToCdmaAmps, &Data::SetToCdmaAmps},
        {Cdma, 2, "Semi-soft primary", &Data::SemiSoftPrimary, &Data::SetSemiSoftPrimary},
        {Cdma, 3, "Soft primary", &Data::SoftPrimary, &Data::SetSoftPrimary},
        {Cdma, 4, "Soft add", &Data::SoftAdd, &Data::SetSoftAdd},
        {Cdma, 5, "Soft drop", &Data::SoftDrop, &Data::SetSoftDrop},
    }};
    return fields;
  }
};

XKivHomDetail::XKivHomDetail()
    : TabOf(kClassName, "Detail"),
      cboModeSelection(this, "cboModeSelection"),
      chkAMPS(this, "chkAMPS"),
      fraTDMA(this, "fraTDMA"),
      chkTDMA(&fraTDMA, "chkTDMA"),
      cmdTDMA(&fraTDMA, "cmdTDMA"),
      fraCDMA(this, "fraCDMA"),
      chkCDMA(&fraCDMA, "chkCDMA"),
      cmdCDMA(&fraCDMA, "cmdCDMA") {
  fraTDMA.SetCaption("TDMA Handoff Types");
  fraCDMA.SetCaption("CDMA Handoff Types");
  cmdTDMA.SetCaption(kSelectAll);
  cmdCDMA.SetCaption(kSelectAll);
  for (const BoxField& field : BoxField::All()) Box(field).SetCaption(field.caption);

  CustomField& modeField = Bind({.showNew = [this] { cboModeSelection.SetListIndex(kNormal); },
                                 .showStored = [this] { ShowStoredMode(); },
                                 .save =
                                     [this] {
                                       // A stored mode that the list does not know stays as it is until the
                                       // user picks one.
                                       const int mode = cboModeSelection.ListIndex();
                                       if (mode != ui::kNoSelection) SubRecord()->SetHomMode(mode);
                                     }});
  Represent(modeField, At(&CKivHomData::HomMode, &CKivHomData::SetHomMode).field, cboModeSelection,
            cboModeSelection.Changed);
  for (const BoxField& field : BoxField::All()) {
    auto& box = Bind(Box(field), At(field.get, field.set)).Default(field.group == BoxField::Group::Amps);
    if (field.group != BoxField::Group::Amps) box.Unreported();  // one click may change many of them
  }
  checks_.Add(
      chkAMPS, [this] { return HasHandoffType(); }, "You must select at least one Handoff Type.");

  cboModeSelection.Changed.Connect([this] { ChooseMode(); });
  cboModeSelection.PickedAgain.Connect([this] { ChooseMode(); });
  cmdTDMA.Clicked.Connect([this] {
    ClickButton(Tdma(), Cdma());
    ReportChange();
  });
  cmdCDMA.Clicked.Connect([this] {
    ClickButton(Cdma(), Tdma());
    ReportChange();
  });
  for (ui::CheckBox& box : chkTDMA) box.Changed.Connect([this] { ClickBox(Tdma(), Cdma()); });
  for (ui::CheckBox& box : chkCDMA) box.Changed.Connect([this] { ClickBox(Cdma(), Tdma()); });
}

XKivHomDetail::BoxGroup XKivHomDetail::Tdma() {
  return {{chkTDMA.begin(), chkTDMA.end()}, cmdTDMA};
}

XKivHomDetail::BoxGroup XKivHomDetail::Cdma() {
  return {{chkCDMA.begin(), chkCDMA.end()}, cmdCDMA};
}

ui::CheckBox& XKivHomDetail::Box(const BoxField& field) {
  switch (field.group) {
    case BoxField::Group::Tdma: return chkTDMA[field.index];
    case BoxField::Group::Cdma: return chkCDMA[field.index];
    default: return chkAMPS;
  }
}

void XKivHomDetail::PrepareControls() {
  cboModeSelection.SetItems({{"Normal", kNormal}, {"TDMA Heat", kTdmaHeat}, {"CDMA Heat", kCdmaHeat}});
  cboModeSelection.SetListIndex(kNormal);
}

void XKivHomDetail::ShowStoredMode() {
  const std::int32_t mode = SubRecord()->HomMode();
  const int index = MKivStudyCtls::FindItemDataIndex(cboModeSelection.Items(), mode);
  cboModeSelection.SetListIndex(index);
  const bool known = index != ui::kNoSelection;
  cboModeSelection.SetHint(known ? std::string() : "stored mode " + std::to_string(mode) + " is unknown");
}

/// Makes usable what the mode and the checked group leave usable; no box is checked or cleared by it.
void XKivHomDetail::ShowUsableGroups() {
  const bool heat = cboModeSelection.ListIndex() == kTdmaHeat || cboModeSelection.ListIndex() == kCdmaHeat;
  chkAMPS.SetEnabled(!heat);
  const auto show = [heat](const BoxGroup& group, const BoxGroup& other) {
    const bool locked = heat || (group.CheckedCount() == 0 && other.CheckedCount() > 0);
    group.SetAccess(locked ? Access::Locked : Access::Usable);
    group.button.SetCaption(!heat && group.AllChecked() ? kClearAll : kSelectAll);
  };
  show(Tdma(), Cdma());
  show(Cdma(), Tdma());
}

void XKivHomDetail::ChooseMode() {
  const int mode = cboModeSelection.ListIndex();
  if (Filling() || mode == ui::kNoSelection) return;
  {
    const FlagGuard filling = HoldReports();
    chkAMPS.SetEnabled(mode == kNormal);
    const Access access = mode == kNormal ? Access::Usable : Access::Locked;
    Tdma().Set(mode == kTdmaHeat, access);
    Cdma().Set(mode == kCdmaHeat, access);
    if (mode == kNormal) {
      cmdTDMA.SetCaption(kSelectAll);
      cmdCDMA.SetCaption(kSelectAll);
    }
  }
  ReportChange();
}

void XKivHomDetail::ClickButton(const BoxGroup& group, const BoxGroup& other) {
  const FlagGuard filling = HoldReports();
  const bool selectAll = group.button.Caption() == kSelectAll;
  group.button.SetCaption(selectAll ? kClearAll : kSelectAll);
  group.Set(selectAll);
  other.Set(false, selectAll ? Access::Locked : Access::Usable);
  other.button.SetCaption(kSelectAll);
}

void XKivHomDetail::ClickBox(const BoxGroup& group, const BoxGroup& other) {
  if (Filling()) return;
  if (other.IsUsable()) {
    const FlagGuard filling = HoldReports();
    other.Set(false, Access::Locked);
  } else if (group.AllChecked()) {
    group.button.SetCaption(kSelectAll);
    ClickButton(group, other);
  } else if (group.CheckedCount() == 0) {
    group.button.SetCaption(kClearAll);
    ClickButton(group, other);
  }
  ReportChange();
}

/// The AMPS box counts even while a heat mode disables it; the other boxes count only while they are usable.
bool XKivHomDetail::HasHandoffType() const {
  const auto counts = [](const ui::CheckBox& box) { return box.Enabled() && box.Checked(); };
  return chkAMPS.Checked() || std::any_of(chkTDMA.begin(), chkTDMA.end(), counts) ||
         std::any_of(chkCDMA.begin(), chkCDMA.end(), counts);
}

ui::LayoutItem XKivHomDetail::Layout() {
  using namespace ui;
  const auto group = [](Frame& frame, auto& boxes, Button& button) {
    std::vector<LayoutItem> items;
    for (CheckBox& box : boxes) items.push_back(Single(box));
    items.push_back(Row({Single(button), Stretch()}));
    items.push_back(Stretch());
    return Group(frame, std::move(items));
  };
  return Column({Form({Field("&Mode:", {Single(cboModeSelection), Stretch()})}), Single(chkAMPS),
                 Row({group(fraTDMA, chkTDMA, cmdTDMA), group(fraCDMA, chkCDMA, cmdCDMA)}), Stretch()});
}

}  // namespace kiv
