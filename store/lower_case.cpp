#include "store/lower_case.h"

#include <clocale>
#include <cwctype>

#include <algorithm>

#include "base/ascii.h"
#include "base/utf16.h"

namespace kiv::store {

namespace {

/// The letters of every language, whatever language the user has chosen; null where the system has no such
/// rules.
locale_t EveryLanguage() {
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return locale;
}

char16_t LowerUnit(char16_t unit) {
  const bool isHalf = unit >= 0xD800 && unit <= 0xDFFF;  // of one of the rare letters beyond 16 bits
  return isHalf ? unit : static_cast<char16_t>(towlower_l(unit, EveryLanguage()));
}

}  // namespace

std::string LowerCase(std::string_view text) {
  const bool ascii = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (!ascii && EveryLanguage()) {
    std::u16string units = ToUtf16(text);
    std::ranges::transform(units, units.begin(), LowerUnit);
    return ToUtf8(units);
  }
  return AsciiLower(text);
}

}  // namespace kiv::store
