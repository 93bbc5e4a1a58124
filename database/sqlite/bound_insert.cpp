#include "database/sqlite/bound_insert.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <span>
#include <string_view>

namespace kiv::database {

namespace {

/// SQLite takes 32,766 parameters.
constexpr std::size_t kMostColumns = 600;

std::int64_t IntegerOf(std::string_view text) {
  if (text.front() == '+') text.remove_prefix(1);
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string WithoutDoubledQuotes(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    plain += text[i];
    if (text[i] == '\'') ++i;
  }
  return plain;
}

int BindText(sqlite3_stmt* statement, int parameter, std::string_view text, sqlite3_destructor_type owner) {
  return sqlite3_bind_text64(statement, parameter, text.data(), text.size(), owner, SQLITE_UTF8);
}

int BindValue(sqlite3_stmt* statement, int parameter, InsertValue::Kind kind, std::string_view text) {
  switch (kind) {
    case InsertValue::Kind::Integer: return sqlite3_bind_int64(statement, parameter, IntegerOf(text));
    case InsertValue::Kind::Text: return BindText(statement, parameter, text, SQLITE_STATIC);
    case InsertValue::Kind::TextWithQuotes:
      return BindText(statement, parameter, WithoutDoubledQuotes(text), SQLITE_TRANSIENT);
    case InsertValue::Kind::Null:
    case InsertValue::Kind::Number: break;
  }
  return sqlite3_bind_null(statement, parameter);
}

}  // namespace

bool CanBeBound(const RowsInsert& insert) {
  return insert.Columns() <= kMostColumns &&
         std::ranges::none_of(
             insert.values, [](const InsertValue& value) { return value.kind == InsertValue::Kind::Number; });
}

std::string TextWithParameters(const RowsInsert& insert, std::size_t rows) {
  std::string row = "(?";
  for (std::size_t i = 1; i < insert.Columns(); ++i) row += ", ?";
  row += ')';
  std::string text(insert.statement, 0, insert.headLength);
  text.reserve(text.size() + rows * (row.size() + 2));
  for (std::size_t i = 0; i < rows; ++i) text.append(i == 0 ? "" : ", ").append(row);
  return text;
}

int BindRows(sqlite3_stmt* statement, const RowsInsert& insert, std::size_t first, std::size_t count) {
  const std::string_view text = insert.statement;
  const std::size_t columns = insert.Columns();
  int parameter = 0;
  for (const InsertValue& value : std::span(insert.values).subspan(first * columns, count * columns)) {
    const int code = BindValue(statement, ++parameter, value.kind, text.substr(value.place, value.length));
    if (code != SQLITE_OK) return code;
  }
  return SQLITE_OK;
}

}  // namespace kiv::database
