#pragma once

#include <algorithm>
#include <string>
#include <string_view>

/// Digits and letters of ASCII. Other characters, and those of the user's language, are left as they are.
namespace kiv {

constexpr bool IsAsciiDigit(char32_t character) {
  return character >= U'0' && character <= U'9';
}
constexpr bool IsAsciiLetter(char32_t character) {
  return (character >= U'a' && character <= U'z') || (character >= U'A' && character <= U'Z');
}

template <class Character>
constexpr Character ToAsciiLower(Character character) {
  return character >= 'A' && character <= 'Z' ? static_cast<Character>(character - 'A' + 'a') : character;
}
template <class Character>
constexpr Character ToAsciiUpper(Character character) {
  return character >= 'a' && character <= 'z' ? static_cast<Character>(character - 'a' + 'A') : character;
}

inline std::string AsciiLower(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), ToAsciiLower<char>);
  return lower;
}
inline std::string AsciiUpper(std::string_view text) {
  std::string upper(text);
  std::ranges::transform(upper, upper.begin(), ToAsciiUpper<char>);
  return upper;
}

/// Whether two texts are the same but for letter case.
inline bool SameInAnyCase(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, {}, ToAsciiLower<char>, ToAsciiLower<char>);
}

}  // namespace kiv
