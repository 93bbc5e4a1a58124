#include "core/kiv_study_ctls.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/utf16.h"
#include "core/drive_type.h"
#include "host/services.h"

namespace kiv::MKivStudyCtls {

namespace {

constexpr std::int16_t kChecked = 1;
constexpr std::int32_t kIdLength = 7;

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

std::int32_t GetDriveTypeName(const std::string& path, std::string& description) {
  const std::int32_t type = DriveTypeOf(path);
  description = DriveTypeDescription(type);
  return type;
}

bool IsAlphaNumeric(std::string_view text) {
  return IsAlphaNumeric(std::u16string_view(ToUtf16(text)));
}

bool IsAlphaNumeric(std::u16string_view characters) {
  return std::all_of(characters.begin(), characters.end(), [](char16_t character) {
    const auto lowByte = static_cast<char16_t>(character & 0xFF);
    return IsAsciiDigit(lowByte) || IsAsciiLetter(lowByte);
  });
}

std::int32_t FindCharInSet(std::int32_t start, std::string_view text, std::string_view set, CharSearch mode,
                           Comparison comparison) {
  const auto folded = [comparison](std::string_view utf8) {
    std::u16string characters = ToUtf16(utf8);
    if (comparison == Comparison::CaseBlind) {
      std::transform(characters.begin(), characters.end(), characters.begin(), ToAsciiLower<char16_t>);
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
