#pragma once

#include <cstddef>
#include <cstdint>

#include "editor/tab.h"
#include "rfc/rfc_data.h"
#include "ui/buttons.h"
#include "ui/label.h"
#include "ui/option_button.h"

namespace kiv {

/// Third tab of an RF call trace study: whether 3G1X supplemental channels are traced at a single rate only,
/// told for each direction. The record is written when the study is saved.
class XKivRfcCDMA3G : public TabOf<CKivRfcData> {
 public:
  static constexpr const char* kClassName = "XKivRfcCDMA3G";

  static constexpr std::size_t kRates = kSupplementalRates;

  XKivRfcCDMA3G();

  ui::LayoutItem Layout() override;

  ui::Label lblSelect;
  ui::CheckBox chkRestrictForward;
  ui::Frame frameForward;
  ui::OptionGroup<kRates> optForwardRate;
  ui::CheckBox chkRestrictReverse;
  ui::Frame FrameReverse;
  ui::OptionGroup<kRates> optReverseRate;

 private:
  /// One direction: its controls, and the restriction that they stand for.
  struct Link {
    ui::CheckBox& box;
    ui::Frame& frame;
    ui::OptionGroup<kRates>& rates;
    std::int16_t restriction = 0;
  };

  void SetUp(Link& link, const Place<std::int16_t>& restriction);
  static void Show(Link& link, std::int16_t restriction);
  static void Recompute(Link& link);

  Link forward_{chkRestrictForward, frameForward, optForwardRate};
  Link reverse_{chkRestrictReverse, FrameReverse, optReverseRate};
};

}  // namespace kiv
