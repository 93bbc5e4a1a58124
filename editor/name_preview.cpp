#include "editor/name_preview.h"

#include <array>
#include <cstdio>

namespace kiv {

namespace {

std::string Digits(int number, int width) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*d", width, number);
  return text;
}

/// Replaces the token at the start of the text, which follows a `$`; false when there is none.
bool TakeToken(std::string_view& text, const NameTokens& tokens, std::string& name) {
  const std::tm& time = tokens.time;
  const int hour12 = time.tm_hour % 12 == 0 ? 12 : time.tm_hour % 12;
  struct Token {
    std::string_view word;
    std::string value;
  };
  const std::array<Token, 8> table = {{{"YY", Digits(time.tm_year % 100, 2)},
                                       {"MM", Digits(time.tm_mon + 1, 2)},
                                       {"DD", Digits(time.tm_mday, 2)},
                                       {"HH12", Digits(hour12, 2)},
                                       {"HH", Digits(time.tm_hour, 2)},
                                       {"MI", Digits(time.tm_min, 2)},
                                       {"USER", tokens.user},
                                       {"ID", Digits(tokens.studyId, 7)}}};
  for (const Token& token : table) {
    if (!text.starts_with(token.word)) continue;
    name += token.value;
    text.remove_prefix(token.word.size());
    return true;
  }
  return false;
}

}  // namespace

std::string ExpandNamePattern(std::string_view pattern, const NameTokens& tokens) {
  std::string name;
  while (!pattern.empty()) {
    const char character = pattern[0];
    pattern.remove_prefix(1);
    if (character != '$' || !TakeToken(pattern, tokens, name)) name += character;
  }
  return name;
}

}  // namespace kiv
