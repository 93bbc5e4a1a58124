#include "store/names.h"

#include <algorithm>

#include "base/utf16.h"

namespace kiv::store {

namespace {

bool BreaksLines(char16_t character) {
  constexpr char16_t kLineSeparator = 0x2028;
  constexpr char16_t kParagraphSeparator = 0x2029;
  const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return isControl || character == kLineSeparator || character == kParagraphSeparator;
}

}  // namespace

std::string NameFault(std::string_view name) {
  const std::u16string characters = ToUtf16(name);
  if (std::ranges::any_of(characters, BreaksLines)) {
    return "must not hold line breaks or other control characters";
  }
  if (characters.size() <= kLongestName) return {};
  return "must have at most " + std::to_string(kLongestName) + " characters, not " +
         std::to_string(characters.size());
}

}  // namespace kiv::store
