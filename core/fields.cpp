#include "core/fields.h"

#include <algorithm>

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
  std::string columns;
  std::vector<Variant> list;
  list.reserve(values.size());
  for (const host::Assignment& value : values) {
    if (!columns.empty()) columns += ", ";
    columns += value.name;
    list.push_back(value.value);
  }
  return "INSERT INTO " + std::string(table) + " (" + columns + ") VALUES (" +
         database.FormatValueList(list) + ")";
}

std::string UpdateStatement(const host::Database& database, std::string_view table,
                            std::span<const host::Assignment> values, std::int32_t id) {
  // The rendered list supplies the blanks around it.
  return "UPDATE " + std::string(table) + " SET" + database.FormatAssignmentList(values) +
         "WHERE Id = " + std::to_string(id);
}

std::string AsciiUpper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
  });
  return upper;
}

}  // namespace sql

}  // namespace kiv
