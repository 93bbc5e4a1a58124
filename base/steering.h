#pragma once

#include <algorithm>
#include <iterator>

namespace kiv {

/// Whether a terminal or an editor obeys the character instead of showing it, such as an escape or a change
/// of the writing direction.
constexpr bool IsSteering(char32_t character) {
  struct Range {
    char32_t first;
    char32_t last;
  };
  constexpr Range kSteering[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0x061C, 0x061C}, {0x200E, 0x200F},
                                 {0x2028, 0x202E}, {0x2066, 0x2069}, {0xFFF9, 0xFFFB}};
  return std::any_of(std::begin(kSteering), std::end(kSteering), [character](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

}  // namespace kiv
