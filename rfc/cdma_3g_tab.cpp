#include "rfc/cdma_3g_tab.h"

#include <utility>
#include <vector>

namespace kiv {

namespace {

constexpr std::int16_t kNoRestriction = 0;

/// The restriction to a rate is its number, counted from 1.
constexpr const char* kRateNames[XKivRfcCDMA3G::kRates] = {"2X (19.2 K)", "4X (38.4 K)", "8X (76.8 K)",
                                                           "16X (153.6 K)", "32X (307.2 K)"};

}  // namespace

XKivRfcCDMA3G::XKivRfcCDMA3G()
    : TabOf(kClassName, "CDMA 3G"),
      lblSelect(this, "lblSelect"),
      chkRestrictForward(this, "chkRestrictForward"),
      frameForward(this, "frameForward"),
      optForwardRate(&frameForward, "optForwardRate"),
      chkRestrictReverse(this, "chkRestrictReverse"),
      FrameReverse(this, "FrameReverse"),
      optReverseRate(&FrameReverse, "optReverseRate") {
  lblSelect.SetCaption(
      "Select either or both checkbox(es) to restrict the Supplemental Channel data collection to a single "
      "rate. If a box is cleared, then the rate(s) for that Channel are determined by the system.");
  chkRestrictForward.SetCaption("Restrict Forward Supplemental Channel Rate to:");
  chkRestrictReverse.SetCaption("Restrict Reverse Supplemental Channel Rate to:");
  using Data = CKivRfcData;
  SetUp(forward_, At(&Data::ForwardRateRestriction, &Data::SetForwardRateRestriction));
  SetUp(reverse_, At(&Data::ReverseRateRestriction, &Data::SetReverseRateRestriction));
}

void XKivRfcCDMA3G::SetUp(Link& link, const Place<std::int16_t>& restriction) {
  for (std::size_t rate = 0; rate < kRates; ++rate) link.rates[rate].SetCaption(kRateNames[rate]);
  for (Signal<>* event : {&link.box.Changed, &link.rates.Changed}) {
    event->Connect([this, &link] {
      if (Filling()) return;
      Recompute(link);
      ReportChange();
    });
  }
  CustomField& field = Bind({.showNew = [&link] { Show(link, kNoRestriction); },
                             .showStored = [&link, restriction] { Show(link, restriction.read()); },
                             .save = [&link, restriction] { restriction.write(link.restriction); }});
  for (Signal<>* event : {&link.box.Changed, &link.rates.Changed}) {
    Represent(field, restriction.field, link.box, *event);
  }
}

/// A rate that there is not has no option, but it stays until the user makes a choice. Without a restriction
/// the first rate stands ready, so that a box that is checked always has its rate.
void XKivRfcCDMA3G::Show(Link& link, std::int16_t restriction) {
  const bool restricted = restriction > kNoRestriction;
  const int rate = restricted ? restriction - 1 : 0;
  link.box.SetChecked(restricted);
  link.rates.SetIndex(rate < static_cast<int>(kRates) ? rate : ui::kNoSelection);
  link.frame.SetEnabled(restricted);
  link.restriction = restriction;
}

void XKivRfcCDMA3G::Recompute(Link& link) {
  const bool restricted = link.box.Checked();
  link.frame.SetEnabled(restricted);
  const int rate = link.rates.Index();
  link.restriction =
      restricted && rate != ui::kNoSelection ? static_cast<std::int16_t>(rate + 1) : kNoRestriction;
}

ui::LayoutItem XKivRfcCDMA3G::Layout() {
  using namespace ui;
  const auto rates = [](Link& link) {
    std::vector<LayoutItem> options;
    for (OptionButton& option : link.rates.Options()) options.push_back(Single(option));
    return Group(link.frame, {Row(std::move(options))});
  };
  return Column({Single(lblSelect), Single(chkRestrictForward), rates(forward_), Single(chkRestrictReverse),
                 rates(reverse_), Stretch()});
}

}  // namespace kiv
