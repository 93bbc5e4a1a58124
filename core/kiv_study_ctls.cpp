#include "core/kiv_study_ctls.h"

#include <algorithm>

#include "base/utf16.h"
#include "host/services.h"
#include "ui/text_box.h"

namespace kiv::MKivStudyCtls {

namespace {

constexpr std::int16_t kChecked = 1;
constexpr std::int32_t kIdLength = 7;

bool IsAsciiDigit(char16_t character) {
  return character >= u'0' && character <= u'9';
}

char16_t AsciiLower(char16_t character) {
  return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character + (u'a' - u'A'))
                                                : character;
}

std::int32_t SegmentLength(std::u16string_view segment) {
  constexpr std::u16string_view kUser = u"USER";
  const auto length = static_cast<std::int32_t>(segment.size());
  // A date or time token is as long as what stands for it, so only these two need an answer of their own.
  if (segment.starts_with(kUser)) {
    const auto userLength = CharacterCount(host::TheSession().UserName());
    return length - static_cast<std::int32_t>(kUser.size()) + static_cast<std::int32_t>(userLength);
  }
  return segment.starts_with(u"ID") ? kIdLength : length;
}

}  // namespace

std::string CheckValueToYN(std::int16_t value) {
  return BoolToYN(value == kChecked);
}

std::int32_t YNToCheckValue(std::string_view text) {
  return text == "Y" ? kChecked : 0;
}

std::string BoolToYN(bool value) {
  return value ? "Y" : "N";
}

std::int32_t FindItemDataIndex(const ui::ItemList& list, std::int32_t data) {
  const auto found =
      std::find_if(list.begin(), list.end(), [data](const ui::ListItem& item) { return item.data == data; });
  return found == list.end() ? ui::kNoSelection : static_cast<std::int32_t>(found - list.begin());
}

bool IsAlphaNumeric(std::string_view text) {
  const std::u16string characters = ToUtf16(text);
  return std::all_of(characters.begin(), characters.end(), [](char16_t character) {
    const auto lowByte = AsciiLower(static_cast<char16_t>(character & 0xFF));
    return IsAsciiDigit(lowByte) || (lowByte >= u'a' && lowByte <= u'z');
  });
}

void NumericKeyFilter(std::int16_t& keyCode) {
  if (keyCode == ui::kBackspaceKey || IsAsciiDigit(static_cast<char16_t>(keyCode))) return;
  keyCode = 0;
  host::TheBeeper().Beep();
}

std::int32_t FindCharInSet(std::int32_t start, std::string_view text, std::string_view set, CharSearch mode,
                           Comparison comparison) {
  const auto folded = [comparison](std::string_view utf8) {
    std::u16string characters = ToUtf16(utf8);
    if (comparison == Comparison::CaseBlind) {
      std::transform(characters.begin(), characters.end(), characters.begin(), AsciiLower);
    }
    return characters;
  };
  const std::u16string characters = folded(text);
  const std::u16string wanted = folded(set);
  const auto from = static_cast<std::size_t>(std::max(start, 1) - 1);
  const auto found = mode == CharSearch::InSet ? characters.find_first_of(wanted, from)
                                               : characters.find_first_not_of(wanted, from);
  return found == std::u16string::npos ? 0 : static_cast<std::int32_t>(found) + 1;
}

std::int32_t PatternNameLength(std::string_view pattern) {
  const std::u16string characters = ToUtf16(pattern);
  std::u16string_view rest = characters;
  std::int32_t length = 0;
  for (;;) {
    const auto end = rest.find(u'$');
    length += SegmentLength(rest.substr(0, end));
    if (end == std::u16string_view::npos) return length;
    rest.remove_prefix(end + 1);
  }
}

}  // namespace kiv::MKivStudyCtls
