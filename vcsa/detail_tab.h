#pragma once

#include <memory>

#include "editor/dd_list_view.h"
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
/// directory number and the polling interval.
class XKivVcsDetail : public TabOf<CKivVcsData> {
 public:
  static constexpr const char* kClassName = "XKivVcsDetail";

  XKivVcsDetail();

  void LoadState() override;
  void SaveData() override;
  ui::LayoutItem Layout() override;

  ui::Frame fraEvents;
  ui::ComboBox cboEvent;  ///< shortcuts for common sets of categories
  ui::ControlArray<ui::CheckBox, CKivVcsData::kEventCategories> chkEvent;
  ui::Frame fraAntennas;
  XDDListView dlvwAntenna;
  ui::Frame fraCarriers;
  XDDListView dlvwCarrier;
  XDnBox txtSingleDn;
  ui::TextBox txtPollingInterval;  ///< seconds
  ui::CheckBox chkDirectionalSetup;
  ui::CheckBox chkCarrierData;

 private:
  void ShowNewStudy() override;
  void ShowStoredStudy() override;
  void TabShown() override;
  void ShowEntities();
  void ChooseEvents();
  void ShowEventChoice();

  bool busy_ = false;  // set while a handler changes the boxes itself
};

}  // namespace kiv
