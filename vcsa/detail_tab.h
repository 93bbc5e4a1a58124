#pragma once

#include <memory>

#include "editor/antenna_choice_list.h"
#include "editor/dn_box.h"
#include "editor/tab.h"
#include "ui/buttons.h"
#include "ui/combo_box.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"
#include "vcsa/vcs_data.h"

namespace kiv {

/// Second tab of a VCSA study: the event categories, the antennas and carriers of its cells, an optional
/// directory number and the polling interval. A choice among antennas and carriers changes the cells of the
/// record at once; the other values are written when the study is saved.
class XKivVcsDetail : public TabOf<CKivVcsData> {
 public:
  static constexpr const char* kClassName = "XKivVcsDetail";

  XKivVcsDetail();

  ui::LayoutItem Layout() override;

  ui::Frame fraEvents;
  ui::ComboBox cboEvent;  ///< shortcuts for common sets of categories
  ui::ControlArray<ui::CheckBox, CKivVcsData::kEventCategories> chkEvent;
  ui::Frame fraAntennas;
  AntennaChoiceList dlvwAntenna;
  ui::Frame fraCarriers;
  AntennaChoiceList dlvwCarrier;
  XDnBox txtSingleDn;
  ui::TextBox txtPollingInterval;  ///< seconds
  ui::CheckBox chkDirectionalSetup;
  ui::CheckBox chkCarrierData;

 private:
  void PrepareControls() override;
  void ShowNewStudy() override { ShowEntities(); }
  void ShowStoredStudy() override { ShowEntities(); }
  void TabShown() override { ShowEntities(); }
  Place<std::string> EventPlace(std::size_t category);
  CheckList AnyEvent();
  void ShowEntities();
  void ChooseEvents();
  void ShowEventChoice();
};

}  // namespace kiv
