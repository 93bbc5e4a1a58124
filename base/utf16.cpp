#include "base/utf16.h"

#include <cstddef>
#include <cstdint>

namespace kiv {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Takes one code point off the front of the text.
char32_t TakeCodePoint(std::string_view& text) {
  const auto byteAt = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t lead = byteAt(0);
  if (lead < 0x80) {
    text.remove_prefix(1);
    return lead;
  }
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  bool valid = lead >= 0xC2 && lead <= 0xF4 && text.size() >= length;
  char32_t point = valid ? lead & (0x7F >> length) : 0;
  for (std::size_t i = 1; valid && i < length; ++i) {
    valid = (byteAt(i) & 0xC0) == 0x80;
    point = (point << 6) | (byteAt(i) & 0x3F);
  }
  valid = valid && point >= kSmallest[length] && point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
  text.remove_prefix(valid ? length : 1);
  return valid ? point : kReplacement;
}

void AppendUtf8(std::string& text, char32_t point) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (point < 0x80) {
    append(point);
  } else if (point < 0x800) {
    append(0xC0 | (point >> 6));
    append(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    append(0xE0 | (point >> 12));
    append(0x80 | ((point >> 6) & 0x3F));
    append(0x80 | (point & 0x3F));
  } else {
    append(0xF0 | (point >> 18));
    append(0x80 | ((point >> 12) & 0x3F));
    append(0x80 | ((point >> 6) & 0x3F));
    append(0x80 | (point & 0x3F));
  }
}

}  // namespace

std::u16string ToUtf16(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const char32_t point = TakeCodePoint(text);
    if (point < 0x10000) {
      result += static_cast<char16_t>(point);
    } else {
      result += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
      result += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
    }
  }
  return result;
}

std::string ToUtf8(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < 0xD800 || unit > 0xDFFF) {
      AppendUtf8(result, unit);
    } else if (unit < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
      ++i;
      AppendUtf8(result, 0x10000U + ((unit - 0xD800U) << 10) + (text[i] - 0xDC00U));
    } else {
      AppendUtf8(result, kReplacement);
    }
  }
  return result;
}

std::size_t CharacterCount(std::string_view text) {
  return ToUtf16(text).size();
}

}  // namespace kiv
