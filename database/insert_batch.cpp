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
/// The places of values are numbers of 32 bits.
constexpr std::size_t kLongestStatement = UINT32_MAX - kMostBytes;
/// With so many digits every number fits 64 bits.
constexpr std::size_t kMostDigitsOfValue = 18;

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
  bool Value(InsertValue& value) {
    const std::size_t start = place_;
    bool found = false;
    if (Next() == '\'') {
      found = Text(value.kind);
    } else if (IsAsciiLetter(Next())) {
      value.kind = InsertValue::Kind::Null;
      found = Keyword("NULL");
    } else {
      found = Number(value.kind);
    }
    const bool quoted =
        value.kind == InsertValue::Kind::Text || value.kind == InsertValue::Kind::TextWithQuotes;
    value.place = static_cast<std::uint32_t>(start + (quoted ? 1 : 0));
    value.length = static_cast<std::uint32_t>(place_ - start - (quoted ? 2 : 0));
    return found;
  }
  /// `(item, item)`
  template <class Item>
  bool List(const Item& item) {
    if (!Character('(')) return false;
    do {
      SkipBlanks();
      if (!item()) return false;
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
  bool Text(InsertValue::Kind& kind) {
    for (int parts = 0; Character('\''); ++parts) {  // a doubled quote goes on with the same text
      const std::size_t end = text_.find_first_of(std::string_view("'\0", 2), place_);
      if (end == std::string_view::npos || text_[end] != '\'') return false;
      place_ = end + 1;
      kind = parts == 0 ? InsertValue::Kind::Text : InsertValue::Kind::TextWithQuotes;
    }
    return true;
  }
  bool Digits() {
    const std::size_t start = place_;
    while (IsAsciiDigit(Next())) ++place_;
    return place_ > start;
  }
  bool Sign() { return Character('-') || Character('+'); }
  bool Number(InsertValue::Kind& kind) {
    Sign();
    const std::size_t start = place_;
    if (!Digits()) return false;
    kind = place_ - start <= kMostDigitsOfValue ? InsertValue::Kind::Integer : InsertValue::Kind::Number;
    if (Next() == '.' || Next() == 'e' || Next() == 'E') kind = InsertValue::Kind::Number;
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

/// Whether from here to its end a statement has nothing but one row of plain values, which are taken.
bool EndsWithRow(Scanner scanner, std::vector<InsertValue>& values) {
  values.clear();
  return scanner.List([&] { return scanner.Value(values.emplace_back()); }) && scanner.AtEnd();
}

/// Where the row of an insert that may be joined begins; npos for every other statement.
std::size_t RowStart(std::string_view sql, std::vector<InsertValue>& values) {
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
  if (!scanner.List([&scanner] { return scanner.Name(); })) return std::string_view::npos;
  scanner.SkipBlanks();
  if (!scanner.Keyword("VALUES")) return std::string_view::npos;
  scanner.SkipBlanks();
  return EndsWithRow(scanner, values) ? scanner.Place() : std::string_view::npos;
}

}  // namespace

/// The last group that a statement can belong to by its text up to the row. Tables take turns when a list of
/// entities is written with the lists of each, so the very last group is not enough to look at.
RowsInsert* InsertBatch::FindGroup(std::string_view sql) {
  const auto found = std::find_if(groups_.rbegin(), groups_.rend(), [sql](const RowsInsert& group) {
    return sql.starts_with(std::string_view(group.statement).substr(0, group.headLength));
  });
  return found == groups_.rend() ? nullptr : &*found;
}

bool InsertBatch::Take(std::string_view sql) {
  if (sql.size() > kLongestStatement || (!Empty() && bytes_ + sql.size() > kMostBytes)) return false;
  RowsInsert* const group = FindGroup(sql);
  if (group && !EndsWithRow(Scanner(sql, group->headLength), row_)) return false;
  if (group && row_.size() != group->Columns()) return false;
  if (group && group->rows < kMostRowsInStatement) {
    Append(*group, sql.substr(group->headLength));
    return true;
  }
  const std::size_t rowStart = group ? group->headLength : RowStart(sql, row_);
  if (rowStart == std::string_view::npos || groups_.size() == kMostStatements) return false;
  groups_.push_back({std::string(sql), rowStart, 1, row_});
  bytes_ += sql.size();
  return true;
}

void InsertBatch::Append(RowsInsert& group, std::string_view row) {
  group.statement.append(", ");
  const std::size_t moved = group.statement.size() - group.headLength;
  group.statement.append(row);
  for (InsertValue& value : row_) value.place += static_cast<std::uint32_t>(moved);
  group.values.insert(group.values.end(), row_.begin(), row_.end());
  ++group.rows;
  bytes_ += row.size();
}

std::vector<RowsInsert> InsertBatch::Release() {
  bytes_ = 0;
  return std::exchange(groups_, {});
}

}  // namespace kiv::database
