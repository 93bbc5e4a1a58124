#pragma once

#include <cstddef>

#include "plm/mode_tab.h"
#include "ui/combo_box.h"
#include "ui/control_array.h"
#include "ui/text_box.h"

namespace kiv {

/// Tab of a PLM study for the CDMA modes 7 to 15, of which a study runs at most two. Before another mode is
/// checked, a carrier that no record could keep is refused as well.
class XKivPlmCdma : public ModeTab {
 public:
  static constexpr const char* kClassName = "XKivPlmCdma";

  static constexpr std::size_t kModes = 9;

  XKivPlmCdma();

  ui::LayoutItem Layout() override;

  ui::ControlArray<ui::CheckBox, kModes> chkMode;
  ui::OptionGroup<kModes> obModeSelector;
  ui::ControlArray<ui::Label, kModes> lblModeSelector;
  ui::ControlArray<ui::Label, kModes> lblModeSummary;
  ui::Label lblDescription;
  ui::TextBox txtCarrier;
  ui::ControlArray<ui::Label, 2> Label1;  ///< captions of the two lists
  ui::ComboBox cboServiceOption;
  ui::ComboBox cboGenerationType;

 private:
  void ShowDetails(const CKivPlmMode& mode) override;
  void StoreDetails(CKivPlmMode& mode) const override;
  bool MayCheckMore() override;
  const CheckList& RulesBeforeChecking() const override { return storable_; }
  std::string RecordProblem(const CKivPlmMode& mode) const override;
  void AddFindings(std::vector<Problem>& findings) override;
  std::string Summary(const CKivPlmMode& mode, std::size_t index) const override;

  CheckList storable_;
};

}  // namespace kiv
