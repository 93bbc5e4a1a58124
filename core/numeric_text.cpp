#include "core/numeric_text.h"

#include <algorithm>
#include <limits>

#include "base/ascii.h"

namespace kiv {

namespace {

constexpr std::int64_t kBeyond32Bits = std::int64_t{1} << 40;

/// Takes the digits off the front of the text.
std::string_view TakeDigits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsAsciiDigit);
  const auto count = static_cast<std::size_t>(end - text.begin());
  const std::string_view digits = text.substr(0, count);
  text.remove_prefix(count);
  return digits;
}

/// Whether a whole number with this fraction behind it rounds away from zero.
bool RoundsUp(std::int64_t whole, std::string_view fraction) {
  if (fraction.empty() || fraction[0] < '5') return false;
  const bool exactlyHalf = fraction[0] == '5' && fraction.find_first_not_of('0', 1) == std::string_view::npos;
  return !exactlyHalf || whole % 2 != 0;
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<std::int64_t> ParseNumber(std::string_view text) {
  text = Trimmed(text);
  const bool negative = !text.empty() && text[0] == '-';
  if (negative || (!text.empty() && text[0] == '+')) text.remove_prefix(1);

  const std::string_view digits = TakeDigits(text);
  std::string_view fraction;
  if (!text.empty() && text[0] == '.') {
    text.remove_prefix(1);
    fraction = TakeDigits(text);
  }
  if (!text.empty() || (digits.empty() && fraction.empty())) return std::nullopt;

  std::int64_t whole = 0;
  for (const char digit : digits) whole = std::min(whole * 10 + (digit - '0'), kBeyond32Bits);
  if (RoundsUp(whole, fraction)) ++whole;
  return negative ? -whole : whole;
}

bool IsNumberBetween(std::string_view text, std::int32_t low, std::int32_t high) {
  const auto number = ParseNumber(text);
  return number && *number >= low && *number <= high;
}

std::int32_t NumberOr(std::string_view text, std::int32_t fallback) {
  const auto number = ParseNumber(text);
  if (!number) return fallback;
  constexpr std::int64_t kLow = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kHigh = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(*number, kLow, kHigh));
}

}  // namespace kiv
