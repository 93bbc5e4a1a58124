#pragma once

#include <cstdint>
#include <string>

/// What the modes of a PLM study can have.
namespace kiv {

struct NumberLimits {
  std::int32_t low;
  std::int32_t high;

  bool Hold(std::int64_t number) const { return number >= low && number <= high; }
  /// Such as `1 and 18`, for messages.
  std::string Words(const char* between) const {
    return std::to_string(low) + between + std::to_string(high);
  }
};

inline constexpr NumberLimits kChannelNumbers = {1, 1999};
/// Of channels that a mode selects automatically.
inline constexpr NumberLimits kSelectedChannels = {0, 10};
inline constexpr NumberLimits kCarriers = {1, 18};

}  // namespace kiv
