#pragma once

#include <array>
#include <cstddef>

#include "plm/distribution_panel.h"
#include "plm/method_panel.h"
#include "plm/mode_panel.h"
#include "plm/mode_tab.h"
#include "ui/control_array.h"

namespace kiv {

/// Tab of a PLM study for the TDMA/AMPS modes 1 to 6, each with a panel of its own.
class XKivPlmTdma : public ModeTab {
 public:
  static constexpr const char* kClassName = "XKivPlmTdma";

  static constexpr std::size_t kModes = 6;

  XKivPlmTdma();

  ui::LayoutItem Layout() override;

  ui::ControlArray<ui::CheckBox, kModes> chkMode;
  ui::OptionGroup<kModes> obModeSelector;
  ui::ControlArray<ui::Label, kModes> lblModeSelector;
  ui::ControlArray<ui::Label, kModes> lblModeSummary;
  PlainPanel XMode1;
  DistributionPanel XMode2;
  ChannelPanel XMode3;
  PlainPanel XMode4;
  DistributionPanel XMode5;
  MethodPanel XMode6;

 private:
  void PrepareControls() override;
  void ForgetDetails() override;
  void ShowDetails(const CKivPlmMode& mode) override;
  void StoreDetails(CKivPlmMode& mode) const override;
  void StartMode(CKivPlmMode& mode, std::size_t index) const override;
  std::string RecordProblem(const CKivPlmMode& mode) const override;
  std::string RecordFinding(const CKivPlmMode& mode) const override;
  std::string Summary(const CKivPlmMode& mode, std::size_t index) const override;
  std::string StoredProblem(const CKivPlmMode& mode, bool ofVisiblePanel) const;

  std::array<ModePanel*, kModes> panels_;
};

}  // namespace kiv
