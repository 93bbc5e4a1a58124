#include "plm/mode_names.h"

#include <algorithm>
#include <array>

namespace kiv::MKivStudyCtls {

namespace {

constexpr std::array<std::string_view, kModeCount> kNames = {
    "Mode 1",        "Mode 2",        "Mode 3",        "Mode 4",         "Mode 5",
    "Mode 6",        "Mode   7 FER1", "Mode   8 FER2", "Mode   9 CPLM1", "Mode 10 CPLM2",
    "Mode 11 CPLM3", "Mode 12 CPLM4", "Mode 13 CPLM5", "Mode 14 CPLM6",  "Mode 15 CPLM7"};

}  // namespace

std::string ModeName(std::int32_t number) {
  if (number < 1 || number > kModeCount) return {};
  return std::string(kNames[static_cast<std::size_t>(number) - 1]);
}

std::int32_t ModeNumber(std::string_view name) {
  const auto found = std::find(kNames.begin(), kNames.end(), name);
  return found == kNames.end() ? 0 : static_cast<std::int32_t>(found - kNames.begin()) + 1;
}

}  // namespace kiv::MKivStudyCtls
