#pragma once

#include <cstddef>

#include "editor/tab.h"
#include "hom/hom_data.h"
#include "ui/buttons.h"
#include "ui/combo_box.h"
#include "ui/control_array.h"
#include "ui/label.h"

namespace kiv {

/// Second tab of a HOM study: its mode and the handoff types that it records. TDMA and CDMA types are never
/// chosen together: choosing in one group empties and locks the other. The record is written when the study
/// is saved.
class XKivHomDetail : public TabOf<CKivHomData> {
 public:
  static constexpr const char* kClassName = "XKivHomDetail";

  static constexpr std::size_t kTdmaBoxes = 4;
  static constexpr std::size_t kCdmaBoxes = 6;

  XKivHomDetail();

  ui::LayoutItem Layout() override;

  ui::ComboBox cboModeSelection;
  ui::CheckBox chkAMPS;
  ui::Frame fraTDMA;
  ui::ControlArray<ui::CheckBox, kTdmaBoxes> chkTDMA;
  ui::Button cmdTDMA;
  ui::Frame fraCDMA;
  ui::ControlArray<ui::CheckBox, kCdmaBoxes> chkCDMA;
  ui::Button cmdCDMA;

 private:
  struct BoxField;
  struct BoxGroup;

  void PrepareControls() override;
  void ShowNewStudy() override { ShowUsableGroups(); }
  void ShowStoredStudy() override { ShowUsableGroups(); }
  void ShowStoredMode();
  void ShowUsableGroups();

  BoxGroup Tdma();
  BoxGroup Cdma();
  ui::CheckBox& Box(const BoxField& field);

  void ChooseMode();
  void ClickButton(const BoxGroup& group, const BoxGroup& other);
  void ClickBox(const BoxGroup& group, const BoxGroup& other);
  bool HasHandoffType() const;
};

}  // namespace kiv
