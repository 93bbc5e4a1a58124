#include "database/insert_batch.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"

namespace kiv::database {

namespace {

/// Larger statements save nothing more, and their failure would come late.
constexpr std::size_t kMostRowsInStatement = 500;
constexpr std::size_t kMostStatements = 100;
constexpr std::size_t kMostBytes = std::size_t{256} * 1024;

/// Reads a statement from its start. Each step says whether what it looks for was there.
class Scanner {
 public:
  explicit Scanner(std::string_view text, std::size_t place = 0) : text_(text), place_(place) {}

  std::size_t Place() const { return place_; }
  bool AtEnd() const { return place_ == text_.size(); }

  void SkipBlanks() {
    while (Next() == ' ' || Next() == '\n' || Next() == '\t' || Next() == '\r') ++place_;
  }
  bool Character(char wanted) {
    if (AtEnd() || text_[place_] != wanted) return false;
    ++place_;
    return true;
  }
  bool Keyword(std::string_view upperCase) {
    const std::string_view word = Word();
    return std::ranges::equal(word, upperCase,
                              [](char character, char upper) { return ToAsciiUpper(character) == upper; });
  }
  /// One with dots as well.
  bool Name() {
    do {
      const std::string_view word = Word();
      if (word.empty() || IsAsciiDigit(word.front())) return false;
    } while (Character('.'));
    return true;
  }
  bool Value() {
    if (Next() == '\'') return Text();
    return IsAsciiLetter(Next()) ? Keyword("NULL") : Number();
  }
  /// `(item, item)`
  bool List(bool (Scanner::*item)()) {
    if (!Character('(')) return false;
    do {
      SkipBlanks();
      if (!(this->*item)()) return false;
      SkipBlanks();
    } while (Character(','));
    return Character(')');
  }

 private:
  char Next() const { return AtEnd() ? '\0' : text_[place_]; }

  std::string_view Word() {
    const std::size_t start = place_;
    while (IsAsciiLetter(Next()) || IsAsciiDigit(Next()) || Next() == '_') ++place_;
    return text_.substr(start, place_ - start);
  }
  bool Text() {
    while (Character('\'')) {  // a doubled quote goes on with the same text
      const std::size_t end = text_.find_first_of(std::string_view("'\0", 2), place_);
      if (end == std::string_view::npos || text_[end] != '\'') return false;
      place_ = end + 1;
    }
    return true;
  }
  bool Digits() {
    const std::size_t start = place_;
    while (IsAsciiDigit(Next())) ++place_;
    return place_ > start;
  }
  bool Sign() { return Character('-') || Character('+'); }
  bool Number() {
    Sign();
    if (!Digits()) return false;
    if (Character('.') && !Digits()) return false;
    if (Character('e') || Character('E')) {
      Sign();
      return Digits();
    }
    return true;
  }

  std::string_view text_;
  std::size_t place_;
};

/// Whether from here to its end a statement has nothing but one row of plain values.
bool EndsWithRow(Scanner scanner) {
  return scanner.List(&Scanner::Value) && scanner.AtEnd();
}

/// Where the row of an insert that may be joined begins; npos for every other statement.
std::size_t RowStart(std::string_view sql) {
  Scanner scanner(sql);
  const auto blankAfter = [&scanner](bool found) {
    const std::size_t end = scanner.Place();
    scanner.SkipBlanks();
    return found && scanner.Place() > end;
  };
  if (!blankAfter(scanner.Keyword("INSERT")) || !blankAfter(scanner.Keyword("INTO")) || !scanner.Name()) {
    return std::string_view::npos;
  }
  scanner.SkipBlanks();
  if (!scanner.List(&Scanner::Name)) return std::string_view::npos;
  scanner.SkipBlanks();
  if (!scanner.Keyword("VALUES")) return std::string_view::npos;
  scanner.SkipBlanks();
  return EndsWithRow(scanner) ? scanner.Place() : std::string_view::npos;
}

}  // namespace

/// The last group that a statement can belong to by its text up to the row. Tables take turns when a list of
/// entities is written with the lists of each, so the very last group is not enough to look at.
InsertBatch::Group* InsertBatch::FindGroup(std::string_view sql) {
  const auto found = std::find_if(groups_.rbegin(), groups_.rend(), [sql](const Group& group) {
    return sql.starts_with(std::string_view(group.statement).substr(0, group.headLength));
  });
  return found == groups_.rend() ? nullptr : &*found;
}

bool InsertBatch::Take(std::string_view sql) {
  if (!Empty() && bytes_ + sql.size() > kMostBytes) return false;
  Group* const group = FindGroup(sql);
  if (group && !EndsWithRow(Scanner(sql, group->headLength))) return false;
  if (group && group->rows < kMostRowsInStatement) {
    const std::string_view row = sql.substr(group->headLength);
    group->statement.append(", ").append(row);
    ++group->rows;
    bytes_ += row.size();
    return true;
  }
  const std::size_t rowStart = group ? group->headLength : RowStart(sql);
  if (rowStart == std::string_view::npos || groups_.size() == kMostStatements) return false;
  groups_.push_back({std::string(sql), rowStart, 1});
  bytes_ += sql.size();
  return true;
}

std::vector<std::string> InsertBatch::Release() {
  std::vector<std::string> statements;
  statements.reserve(groups_.size());
  for (Group& group : groups_) statements.push_back(std::move(group.statement));
  groups_.clear();
  bytes_ = 0;
  return statements;
}

}  // namespace kiv::database
