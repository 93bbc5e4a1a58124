#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "plm/limits.h"
#include "plm/method_panel.h"
#include "ui/buttons.h"
#include "ui/option_button.h"
#include "ui/text_box.h"

namespace kiv {

/// What a mode gets that is checked for the first time, and what the defaults button restores.
struct DistributionDefaults {
  std::int32_t amps = 5;
  std::int32_t tdma = 5;
  std::int32_t total = kSelectedChannels.high;
  std::int32_t from = kChannelNumbers.low;
  std::int32_t to = kChannelNumbers.high;
  std::string distributionMethod = "Expand";
  std::string sortBy = "Member";
  std::string selectFromList = "Begin";
  std::string excludeAce = "N";
};

/// What the panels of this kind call unsound defaults, each in its own way.
struct DefaultsWording {
  std::string tooMany;
  std::string fromBehindTo;
  std::string totalTooLarge;
};

/// Panel of a mode that selects its channels automatically, by a distribution over AMPS and TDMA, or
/// manually.
class DistributionPanel : public MethodPanel {
 public:
  DistributionPanel(Container* parent, std::int32_t number, const DefaultsWording& wording);

  const DistributionDefaults& Defaults() const { return defaults_; }
  /// Takes effect with the next InitControls, which checks them.
  void SetDefaults(DistributionDefaults defaults) { defaults_ = std::move(defaults); }

  void InitControls() override;
  void DataToCtls(const CKivPlmMode& mode) override;
  void CtlsToData(CKivPlmMode& mode) const override;
  void DefaultsToData(CKivPlmMode& mode) const override;
  void HandleMethodChange() override;
  std::string Summary(const CKivPlmMode& mode) const override;
  ui::LayoutItem Layout() override;

  ui::Frame fraAutomatic;  ///< usable only with the automatic method
  ui::TextBox txtAmps;
  ui::TextBox txtTdma;
  ui::TextBox txtTotal;
  ui::OptionGroup<2> optAuto;  ///< expand, restrict
  ui::ComboBox cboSort1;
  ui::ComboBox cboSort2;
  ui::TextBox txtFrom;
  ui::TextBox txtTo;
  ui::CheckBox chkAce;
  ui::Button cmdDefaults;

 protected:
  std::optional<Problem> StoredProblem(const CKivPlmMode& mode) override;

 private:
  struct Numbers;
  struct Rule;
  struct NumberField;

  Numbers ShownNumbers() const;
  void AddRules();
  void CheckDefaults() const;
  void ShowDistribution(const CKivPlmMode& mode);

  DefaultsWording wording_;
  DistributionDefaults defaults_;
};

}  // namespace kiv
