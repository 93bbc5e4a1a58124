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
/// chosen together: choosing in one group empties and locks the other.
class XKivHomDetail : public TabOf<CKivHomData> {
 public:
  static constexpr const char* kClassName = "XKivHomDetail";

  static constexpr std::size_t kTdmaBoxes = 4;
  static constexpr std::size_t kCdmaBoxes = 6;

  XKivHomDetail();

  void LoadState() override;
  void SaveData() override;
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

  void ShowNewStudy() override;
  void ShowStoredStudy() override;
  void ShowUsableGroups();

  BoxGroup Tdma();
  BoxGroup Cdma();
  ui::CheckBox& Box(const BoxField& field);

  void ChooseMode();
  void ClickButton(const BoxGroup& group, const BoxGroup& other);
  void ClickBox(const BoxGroup& group, const BoxGroup& other);
  bool HasHandoffType() const;

  bool busy_ = false;  // set while a handler changes the boxes itself
};

}  // namespace kiv
