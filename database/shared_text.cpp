#include "database/shared_text.h"

#include <algorithm>
#include <charconv>

#include "base/ascii.h"

namespace kiv::database {

namespace {

/// With so many digits every number fits 64 bits.
constexpr std::size_t kMostDigitsTakenOut = 18;

bool IsWord(std::string_view token, std::string_view upperCase) {
  return std::ranges::equal(token, upperCase, {}, ToAsciiUpper<char>);
}

template <class Belongs>
std::size_t LengthWhile(std::string_view text, const Belongs& belongs) {
  return static_cast<std::size_t>(std::ranges::find_if_not(text, belongs) - text.begin());
}

std::int64_t NumberIn(std::string_view digits) {
  std::int64_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// The tokens of a statement: words and numbers, whatever is quoted, comments, and single other characters.
class Tokens {
 public:
  explicit Tokens(std::string_view sql) : rest_(sql) {}

  bool AtEnd() const { return rest_.empty(); }

  std::string_view Next() {
    const std::size_t length = Length();
    const std::string_view token = rest_.substr(0, length);
    rest_.remove_prefix(token.size());
    return token;
  }

 private:
  /// Whether a name or a number can go on with it; beyond ASCII everything is a letter.
  static bool InWord(char character) {
    return IsAsciiLetter(character) || IsAsciiDigit(character) || character == '_' || character == '$' ||
           static_cast<unsigned char>(character) >= 0x80;
  }
  static bool InNumber(char character) { return InWord(character) || character == '.'; }

  std::size_t Length() const {
    const char first = rest_.front();
    if (IsAsciiDigit(first) || first == '.') return LengthWhile(rest_, InNumber);
    if (first != '$' && InWord(first)) return LengthWhile(rest_, InWord);
    if (first == '\'' || first == '"' || first == '`') return LengthTo(rest_.substr(0, 1), 1);
    if (first == '[') return LengthTo("]", 1);
    if (rest_.starts_with("--")) return LengthTo("\n", 2);
    if (rest_.starts_with("/*")) return LengthTo("*/", 2);
    return 1;
  }
  /// A quote that is doubled ends one token and begins the next, which is as good.
  std::size_t LengthTo(std::string_view end, std::size_t from) const {
    const std::size_t found = rest_.find(end, from);
    return found == std::string_view::npos ? rest_.size() : found + end.size();
  }

  std::string_view rest_;
};

bool IsWholeNumber(std::string_view token) {
  return token.size() <= kMostDigitsTakenOut && std::ranges::all_of(token, IsAsciiDigit);
}

/// Finds out where a statement is, token by token.
class Place {
 public:
  /// Whether a number that comes next may be taken out.
  bool TakesNumber() const { return inCondition_ && behindEquals_; }

  void Pass(std::string_view token) {
    const char first = token.front();
    if (first == ' ' || first == '\n' || first == '\t') return;
    behindEquals_ = first == '=';
    if (first == '(') ++depth_;
    if (first == ')') --depth_;
    // What comes then may have names of its own, or none that matter.
    if (IsWord(token, "SELECT") || IsWord(token, "RETURNING")) over_ = true;
    if (depth_ == 0 && IsWord(token, "WHERE")) inCondition_ = true;
  }
  bool Over() const { return over_; }

 private:
  int depth_ = 0;
  bool inCondition_ = false;
  bool behindEquals_ = false;
  bool over_ = false;
};

}  // namespace

bool SharedText::Fits(std::string_view sql, std::vector<std::int64_t>& numbers) const {
  numbers.clear();
  const std::string_view all = text;
  std::size_t from = 0;
  for (const std::size_t place : places) {
    const std::string_view part = all.substr(from, place - from);
    if (!sql.starts_with(part)) return false;
    sql.remove_prefix(part.size());
    // What follows cannot belong to the number: it did not where this text comes from.
    const std::size_t length = LengthWhile(sql, IsAsciiDigit);
    if (length == 0 || length > kMostDigitsTakenOut) return false;
    numbers.push_back(NumberIn(sql.substr(0, length)));
    sql.remove_prefix(length);
    from = place + 1;
  }
  return sql == all.substr(from);
}

SharedText ShareText(std::string_view sql, std::vector<std::int64_t>& numbers) {
  numbers.clear();
  SharedText shared;
  Tokens tokens(sql);
  if (tokens.AtEnd()) return {};
  const std::string_view verb = tokens.Next();
  if (!IsWord(verb, "SELECT") && !IsWord(verb, "DELETE") && !IsWord(verb, "UPDATE")) return {};

  shared.text.reserve(sql.size());
  shared.text = verb;
  Place place;
  while (!tokens.AtEnd()) {
    const std::string_view token = tokens.Next();
    if (std::string_view("?:@$#").find(token.front()) != std::string_view::npos || token.front() == '\0') {
      return {};
    }
    if (place.TakesNumber() && !place.Over() && IsWholeNumber(token)) {
      numbers.push_back(NumberIn(token));
      shared.places.push_back(shared.text.size());
      shared.text += '?';
    } else {
      shared.text += token;
    }
    place.Pass(token);
  }
  return shared;
}

}  // namespace kiv::database
