#include "client/cli/terminal_text.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <span>

#include "base/steering.h"
#include "base/utf16.h"

namespace kiv::client {

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

/// Characters that are put onto the one before.
constexpr Range kCombining[] = {{0x0300, 0x036F}, {0x0483, 0x0489},  {0x0591, 0x05BD}, {0x0610, 0x061A},
                                {0x064B, 0x065F}, {0x1AB0, 0x1AFF},  {0x1DC0, 0x1DFF}, {0x200B, 0x200D},
                                {0x2060, 0x2064}, {0x20D0, 0x20FF},  {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
                                {0xFEFF, 0xFEFF}, {0xE0100, 0xE01EF}};

/// East Asian characters and pictures, which take two columns.
constexpr Range kWide[] = {{0x1100, 0x115F},  {0x2E80, 0x303E},   {0x3041, 0xA4CF},   {0xA960, 0xA97F},
                           {0xAC00, 0xD7A3},  {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF01, 0xFF60},
                           {0xFFE0, 0xFFE6},  {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1FAFF},
                           {0x20000, 0x3FFFD}};

bool IsIn(std::span<const Range> ranges, char32_t character) {
  return std::any_of(ranges.begin(), ranges.end(), [character](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

bool IsPlain(char byte) {
  return byte >= ' ' && byte < 0x7F;
}

/// Whether every byte is a character that is shown in one column; long lists are mostly of such.
bool IsAscii(std::string_view text) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kHighBits = 0x80 * kOnes;
  for (; text.size() >= sizeof(std::uint64_t); text.remove_prefix(sizeof(std::uint64_t))) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text.data(), sizeof bytes);
    // The first byte that is 0x7F or below ' ' gets a high bit by the addition or the subtraction.
    if (((bytes | (bytes + kOnes) | (bytes - ' ' * kOnes)) & kHighBits) != 0) return false;
  }
  return std::all_of(text.begin(), text.end(), IsPlain);
}

/// Takes the first character, of one or two units, off the text.
char32_t TakeCharacter(std::u16string_view& units) {
  const char16_t first = units[0];
  units.remove_prefix(1);
  const bool isPair = first >= 0xD800 && first <= 0xDBFF && !units.empty();
  if (!isPair) return first;
  const char16_t second = units[0];
  units.remove_prefix(1);
  return 0x10000 + ((first - 0xD800U) << 10) + (second - 0xDC00U);
}

std::string Number(char32_t character) {
  char text[16];
  std::snprintf(text, sizeof text, character <= 0xFF ? "\\x%02X" : "\\u%04X",
                static_cast<unsigned>(character));
  return text;
}

}  // namespace

std::size_t TerminalWidth(std::string_view text) {
  if (IsAscii(text)) return text.size();
  const std::u16string units = ToUtf16(text);
  std::size_t width = 0;
  for (std::u16string_view rest = units; !rest.empty();) {
    const char32_t character = TakeCharacter(rest);
    if (IsIn(kCombining, character)) continue;
    width += IsIn(kWide, character) ? 2 : 1;
  }
  return width;
}

std::size_t AppendTerminalText(std::string_view text, std::string& to) {
  if (IsAscii(text)) {
    to += text;
    return text.size();
  }
  const std::string shown = TerminalText(text);
  to += shown;
  return TerminalWidth(shown);
}

std::string TerminalText(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  const std::u16string units = ToUtf16(text);
  std::string shown;
  for (std::u16string_view rest = units; !rest.empty();) {
    const std::u16string_view before = rest;
    const char32_t character = TakeCharacter(rest);
    shown +=
        IsSteering(character) ? Number(character) : ToUtf8(before.substr(0, before.size() - rest.size()));
  }
  return shown;
}

}  // namespace kiv::client
