#include "host/sql_rendering.h"

#include <charconv>
#include <string_view>
#include <type_traits>

namespace kiv::host {

namespace {

void AppendQuoted(std::string& sql, std::string_view text) {
  sql += '\'';
  for (const char character : text) {
    if (character == '\0') {
      throw Error(ErrorNumber::InvalidArgument, "A text for the database must not contain a NUL character.");
    }
    if (character == '\'') sql += '\'';
    sql += character;
  }
  sql += '\'';
}

template <class Number>
void AppendNumber(std::string& sql, Number value) {
  char digits[32];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
  sql.append(digits, end);
}

void AppendValue(std::string& sql, const Variant& value) {
  std::visit(
      [&sql](const auto& held) {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>) {
          sql += "NULL";
        } else if constexpr (std::is_same_v<Held, bool>) {
          sql += held ? "'Y'" : "'N'";
        } else if constexpr (std::is_arithmetic_v<Held>) {
          AppendNumber(sql, held);
        } else if constexpr (std::is_same_v<Held, std::string>) {
          AppendQuoted(sql, held);
        } else {
          throw Error(ErrorNumber::TypeMismatch, "An object cannot be stored as a database value.");
        }
      },
      value.Value());
}

}  // namespace

std::string RenderValue(const Variant& value) {
  std::string sql;
  AppendValue(sql, value);
  return sql;
}

std::string RenderValueList(std::span<const Variant> values) {
  constexpr std::size_t kUsualLengthOfValue = 8;
  std::string sql;
  sql.reserve(values.size() * kUsualLengthOfValue);
  for (const Variant& value : values) {
    if (!sql.empty()) sql += ", ";
    AppendValue(sql, value);
  }
  return sql;
}

std::string RenderAssignmentList(std::span<const Assignment> assignments) {
  std::string sql = " ";
  for (const Assignment& assignment : assignments) {
    if (sql.size() > 1) sql += ", ";
    sql += assignment.name;
    sql += " = ";
    AppendValue(sql, assignment.value);
  }
  sql += ' ';
  return sql;
}

bool RenderedAsTrue(const Variant& field) {
  if (const auto* text = std::get_if<std::string>(&field.Value())) return *text == "Y";
  if (const auto* flag = std::get_if<bool>(&field.Value())) return *flag;
  if (const auto* number = std::get_if<std::int64_t>(&field.Value())) return *number != 0;
  if (const auto* number = std::get_if<double>(&field.Value())) return *number != 0;
  return false;
}

}  // namespace kiv::host
