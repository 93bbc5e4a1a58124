#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/conversions.h"
#include "core/sub_record.h"
#include "host/database.h"

/// Field tables: what a record stores, told once. Statements, loading and listing are made from them.
namespace kiv {

enum class FieldRole {
  Key,          ///< identifies the row; inserted, never updated, not loaded
  Stored,       ///< a column of every database
  Optional,     ///< a column that databases of an earlier layout lack
  Nullable,     ///< a number that may be unset: kUnsetNumber in the record, NULL in the database
  InsertOnly,   ///< kept for other readers of the database; inserted, never updated, not loaded
  WhenPositive  ///< numbers that are written together, only when one of them is above 0; 0 where there is
                ///< none
};

/// What an unset number of a Nullable field reads in the record.
inline constexpr std::int32_t kUnsetNumber = -1;

/// Where a value lives that is no member of its own, such as an element of an array.
template <class Record, class Value>
struct ElementOf {
  std::function<Value&(Record&)> place;
};

/// One field of a record: its column, where its value lives, and how it is stored.
template <class Record>
struct RecordField {
  std::string_view name;
  std::variant<std::int32_t Record::*, std::string Record::*, ElementOf<Record, std::string>,
               std::int16_t Record::*>
      member;
  FieldRole role = FieldRole::Stored;
  std::string_view whenAbsent = {};  ///< text of an optional field that the database lacks

  bool IsText() const { return member.index() == 1 || member.index() == 2; }
  /// Whether a study can differ in it: neither its number nor the same in all.
  bool IsContent() const { return role != FieldRole::Key && role != FieldRole::InsertOnly; }

  Variant Get(const Record& record) const {
    if (const auto* number = std::get_if<0>(&member)) {
      const bool unset = role == FieldRole::Nullable && record.*(*number) == kUnsetNumber;
      return unset ? Variant() : Variant(record.*(*number));
    }
    if (const auto* number = std::get_if<3>(&member)) return Variant(record.*(*number));
    return Variant(TextOf(const_cast<Record&>(record)));  // only read
  }
  void Set(Record& record, const Variant& value) const {
    if (const auto* number = std::get_if<0>(&member)) {
      const bool unset = role == FieldRole::Nullable && value.IsNull();
      record.*(*number) = unset ? kUnsetNumber : ToInt32(value);
    } else if (const auto* shortNumber = std::get_if<3>(&member)) {
      record.*(*shortNumber) = ToInt16(value);
    } else {
      TextOf(record) = ToText(value);
    }
  }

 private:
  std::string& TextOf(Record& record) const {
    const auto* text = std::get_if<1>(&member);
    return text ? record.*(*text) : std::get<2>(member).place(record);
  }
};

enum class OptionalFields { Absent, Present };

namespace sql {

/// `INSERT INTO Table (A, B) VALUES (1, 'x')`
std::string InsertStatement(const host::Database& database, std::string_view table,
                            std::span<const host::Assignment> values);
/// `UPDATE Table SET A = 1, B = 'x' WHERE Id = 7`
std::string UpdateStatement(const host::Database& database, std::string_view table,
                            std::span<const host::Assignment> values, std::int32_t id);
std::string AsciiUpper(std::string_view text);

}  // namespace sql

/// Whether a table has the record's optional columns; asked anew for every statement.
template <class Record>
OptionalFields FindOptionalFields(host::Database& database, std::string_view table,
                                  std::span<const RecordField<Record>> fields) {
  for (const RecordField<Record>& field : fields) {
    if (field.role != FieldRole::Optional) continue;
    const bool exists = database.ColumnExists(sql::AsciiUpper(table), sql::AsciiUpper(field.name));
    return exists ? OptionalFields::Present : OptionalFields::Absent;
  }
  return OptionalFields::Absent;
}

/// Whether any of the record's fields that depend on it is above 0.
template <class Record>
bool HasPositive(const Record& record, std::span<const RecordField<Record>> fields) {
  return std::any_of(fields.begin(), fields.end(), [&record](const RecordField<Record>& field) {
    return field.role == FieldRole::WhenPositive && ToInt32(field.Get(record)) > 0;
  });
}

/// The record's values by column, in storing order; an update leaves out the key and what is only inserted.
enum class KeyField { Include, LeaveOut };
template <class Record>
std::vector<host::Assignment> ColumnValues(const Record& record, std::span<const RecordField<Record>> fields,
                                           OptionalFields optional, KeyField key) {
  std::vector<host::Assignment> values;
  values.reserve(fields.size());
  const bool positive = HasPositive(record, fields);
  for (const RecordField<Record>& field : fields) {
    if (!field.IsContent() && key == KeyField::LeaveOut) continue;
    if (field.role == FieldRole::Optional && optional == OptionalFields::Absent) continue;
    if (field.role == FieldRole::WhenPositive && !positive) continue;
    values.push_back({field.name, field.Get(record)});
  }
  return values;
}

/// The value of a field that a row need not have, or not as a number; 0 then.
Variant NumberOrZero(const host::Recordset& row, std::string_view name);

/// Fills the record from the current row. A value that does not convert leaves the record as it was.
template <class Record>
void LoadFields(Record& record, const host::Recordset& row, std::span<const RecordField<Record>> fields,
                OptionalFields optional) {
  Record loaded = record;
  for (const RecordField<Record>& field : fields) {
    if (!field.IsContent()) continue;
    if (field.role == FieldRole::Optional && optional == OptionalFields::Absent) {
      field.Set(loaded, Variant(field.whenAbsent));
    } else if (field.role == FieldRole::WhenPositive) {
      field.Set(loaded, NumberOrZero(row, field.name));
    } else {
      field.Set(loaded, row.Field(field.name));
    }
  }
  record = std::move(loaded);
}

/// The fields that make up the content of a study; StoredReader::Fields takes them back.
template <class Record>
std::vector<NamedValue> ListFields(const Record& record, std::span<const RecordField<Record>> fields) {
  std::vector<NamedValue> values;
  values.reserve(fields.size());
  for (const RecordField<Record>& field : fields) {
    if (!field.IsContent()) continue;
    values.push_back({field.name, field.Get(record)});
  }
  return values;
}

}  // namespace kiv
