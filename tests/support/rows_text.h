#pragma once

#include <algorithm>
#include <string>

#include "core/conversions.h"
#include "host/database.h"

namespace kiv::test {

/// The first field of the first row.
inline Variant ValueOf(host::Database& database, const std::string& query) {
  return database.OpenQuery(query, host::kQueryTimeoutSeconds)->FieldAt(0);
}

/// The rows of a query, such as "1|Y;2|NULL;". Behind the table's name may stand conditions and an order.
inline std::string RowsText(host::Database& database, const std::string& columns, const std::string& table) {
  const auto rows = database.OpenQuery("SELECT " + columns + " FROM " + table, host::kQueryTimeoutSeconds);
  const auto count = std::count(columns.begin(), columns.end(), ',') + 1;
  std::string text;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    for (int column = 0; column < count; ++column) {
      const Variant value = rows->FieldAt(column);
      text += (column > 0 ? "|" : "") + (value.IsNull() ? "NULL" : ToText(value));
    }
    text += ";";
  }
  return text;
}

}  // namespace kiv::test
