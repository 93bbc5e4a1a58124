#include "database/server_address.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"

namespace kiv::database {

namespace {

/// What says where a server is, or who asks it. A file is seldom called so.
constexpr std::array<std::string_view, 8> kKeywords = {"host", "hostaddr", "port",        "dbname",
                                                       "user", "password", "sslpassword", "service"};

bool IsBlank(char character) {
  return std::string_view(" \t\r\n\v\f").find(character) != std::string_view::npos;
}

std::string_view WithoutBlanks(std::string_view text) {
  text.remove_prefix(static_cast<std::size_t>(std::ranges::find_if_not(text, IsBlank) - text.begin()));
  return text;
}

/// Takes the letters at the beginning of a text away.
std::string_view TakeWord(std::string_view& text) {
  const auto* const end = std::ranges::find_if_not(text, [](char c) { return IsAsciiLetter(c) || c == '_'; });
  const std::string_view word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(word.size());
  return word;
}

/// Whether somewhere in a text a keyword is given a value.
bool HasKeyword(std::string_view text) {
  for (std::size_t place = 0; place < text.size(); ++place) {
    if (place > 0 && !IsBlank(text[place - 1])) continue;
    std::string_view rest = text.substr(place);
    const std::string_view word = TakeWord(rest);
    if (std::ranges::find(kKeywords, word) != kKeywords.end() && WithoutBlanks(rest).starts_with('='))
      return true;
  }
  return false;
}

}  // namespace

bool IsServerAddress(std::string_view name) {
  std::string_view rest = WithoutBlanks(name);
  if (TakeWord(rest).empty()) return false;
  return rest.starts_with("://") || (WithoutBlanks(rest).starts_with('=') && HasKeyword(name));
}

}  // namespace kiv::database
