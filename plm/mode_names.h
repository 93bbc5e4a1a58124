#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The measurement modes of PLM studies. Modes 1 to 6 measure TDMA/AMPS channels, modes 7 to 15 CDMA.
namespace kiv::MKivStudyCtls {

inline constexpr std::int32_t kModeCount = 15;

/// The name of a mode, blanks included; empty outside 1 to kModeCount.
std::string ModeName(std::int32_t number);

/// The number of the mode with exactly this name; 0 when there is none.
std::int32_t ModeNumber(std::string_view name);

}  // namespace kiv::MKivStudyCtls
