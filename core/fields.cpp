#include "core/fields.h"

namespace kiv {

Variant NumberOrZero(const host::Recordset& row, std::string_view name) {
  try {
    return Variant(ToInt16(row.Field(name)));
  } catch (const Error&) {
    return Variant(0);
  }
}

namespace sql {

std::string InsertStatement(const host::Database& database, std::string_view table,
                            std::span<const host::Assignment> values) {
  constexpr std::size_t kUsualLength = 256;  // of the texts that are made by the thousand
  std::string sql;
  sql.reserve(kUsualLength);
  sql.append("INSERT INTO ").append(table).append(" (");
  std::vector<Variant> list;
  list.reserve(values.size());
  for (const host::Assignment& value : values) {
    if (!list.empty()) sql += ", ";
    sql += value.name;
    list.push_back(value.value);
  }
  return sql.append(") VALUES (").append(database.FormatValueList(list)).append(")");
}

std::string UpdateStatement(const host::Database& database, std::string_view table,
                            std::span<const host::Assignment> values, std::int32_t id) {
  // The rendered list supplies the blanks around it.
  return "UPDATE " + std::string(table) + " SET" + database.FormatAssignmentList(values) +
         "WHERE Id = " + std::to_string(id);
}

}  // namespace sql

}  // namespace kiv
