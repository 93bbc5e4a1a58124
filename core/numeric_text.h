#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Numbers as users type them: blanks around are ignored, an optional sign, decimal digits, and optionally
/// one `.` with a fraction.
namespace kiv {

/// The number rounded half to even; nothing when the text is not a number. A number too large for 32 bits
/// reads as the nearest one that is just as much out of range: it fails every range check and never raises.
std::optional<std::int64_t> ParseNumber(std::string_view text);

inline bool IsNumeric(std::string_view text) {
  return ParseNumber(text).has_value();
}

/// Whether the text is a number from `low` to `high`, both included.
bool IsNumberBetween(std::string_view text, std::int32_t low, std::int32_t high);

/// The number held to 32 bits; `fallback` when the text is not a number.
std::int32_t NumberOr(std::string_view text, std::int32_t fallback);

/// The text without the blanks at both ends.
std::string_view Trimmed(std::string_view text);

}  // namespace kiv
