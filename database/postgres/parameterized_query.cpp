#include "database/postgres/parameterized_query.h"

#include <cstddef>

#include "base/ascii.h"

namespace kiv::database {

namespace {

/// Fewer digits than the largest int4 has.
constexpr std::size_t kMostDigits = 9;

bool IsNameCharacter(char character) {
  return IsAsciiLetter(character) || IsAsciiDigit(character) || character == '_';
}

/// Whether a text ends with a name and an equals sign, such as "WHERE a.id = ".
bool EndsWithComparison(std::string_view text) {
  if (text.ends_with(' ')) text.remove_suffix(1);
  if (!text.ends_with('=')) return false;
  text.remove_suffix(1);
  if (text.ends_with(' ')) text.remove_suffix(1);
  return !text.empty() && IsNameCharacter(text.back());
}

/// The digits at the start of a text when they are a whole int4 that nothing is done with.
std::string_view NumberAt(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size() && IsAsciiDigit(text[length])) ++length;
  if (length == 0 || length > kMostDigits) return {};
  const std::string_view rest = text.substr(length);
  const bool ends = rest.empty() || rest.starts_with(" AND ") || rest.starts_with(" ORDER BY ");
  return ends ? text.substr(0, length) : std::string_view();
}

}  // namespace

ParameterizedQuery Parameterized(std::string_view sql) {
  constexpr std::string_view kOrder = " ORDER BY ";
  ParameterizedQuery shared;
  bool ordered = false;
  // Nothing with quoted names, comments, backslashes or parameters of its own.
  bool plain = sql.find_first_of("\"$\\-/;?") == std::string_view::npos;
  for (std::size_t place = 0; plain && place < sql.size();) {
    const std::string_view rest = sql.substr(place);
    if (rest.front() == '\'') {
      const std::size_t end = rest.find('\'', 1);
      plain = end != std::string_view::npos;
      shared.text += rest.substr(0, end + 1);
      place += end + 1;
      continue;
    }
    ordered |= rest.starts_with(kOrder);
    const std::string_view number = EndsWithComparison(shared.text) ? NumberAt(rest) : "";
    if (number.empty()) {
      shared.text += rest.front();
      ++place;
      continue;
    }
    shared.numbers.emplace_back(number);
    shared.text.append(1, '$').append(std::to_string(shared.numbers.size()));
    place += number.size();
  }
  return plain && ordered ? shared : ParameterizedQuery{std::string(sql), {}};
}

std::string FunctionCall(std::string_view name) {
  // Each part in quotes, in the letter case in which an unquoted name is found.
  std::string quoted = "\"";
  for (const char character : name) {
    if (character == '.') {
      quoted += "\".\"";
    } else if (character == '"') {
      quoted += "\"\"";
    } else {
      quoted += ToAsciiLower(character);
    }
  }
  return "SELECT CAST(" + quoted + "\"($1) AS TEXT)";
}

}  // namespace kiv::database
