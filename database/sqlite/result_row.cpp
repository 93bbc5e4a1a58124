#include "database/sqlite/result_row.h"

#include <sqlite3.h>

#include <charconv>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kiv::database {

namespace {

/// The length is that of the form in which the value was asked for last.
std::string_view BytesOf(sqlite3_value* value, const void* bytes) {
  if (!bytes) return {};
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace

const FieldNames& NamesOf(PreparedStatement& statement) {
  sqlite3_stmt* const handle = statement.handle.get();
  const int timesPrepared = sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_REPREPARE, 0);
  if (statement.fieldNames && statement.timesPrepared == timesPrepared) return statement.fieldNames;
  const int count = sqlite3_column_count(handle);
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) names.emplace_back(sqlite3_column_name(handle, i));
  statement.fieldNames = std::make_shared<const std::vector<std::string>>(std::move(names));
  statement.timesPrepared = timesPrepared;
  return statement.fieldNames;
}

void AppendRow(RowBuffer& rows, sqlite3_stmt* statement, int fieldCount) {
  for (int i = 0; i < fieldCount; ++i) {
    sqlite3_value* const value = sqlite3_column_value(statement, i);
    switch (sqlite3_value_type(value)) {
      case SQLITE_NULL: rows.AppendNull(); break;
      case SQLITE_INTEGER: rows.AppendInteger(sqlite3_value_int64(value)); break;
      case SQLITE_FLOAT: rows.AppendReal(sqlite3_value_double(value)); break;
      case SQLITE_TEXT: rows.AppendText(BytesOf(value, sqlite3_value_text(value))); break;
      default: rows.AppendText(BytesOf(value, sqlite3_value_blob(value)));
    }
  }
}

std::string_view TextOf(sqlite3_value* value, NumberText& number) {
  if (sqlite3_value_type(value) == SQLITE_INTEGER) {
    const auto end =
        std::to_chars(number.data(), number.data() + number.size(), sqlite3_value_int64(value)).ptr;
    return {number.data(), static_cast<std::size_t>(end - number.data())};
  }
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace kiv::database
