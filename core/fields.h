#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "base/ascii.h"
#include "core/conversions.h"
#include "core/field_rule.h"
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

/// A text that is no member of its own but an element of an array.
template <class Record>
struct TextElement {
  std::function<const std::string&(const Record&)> read;
  std::function<std::string&(Record&)> place;

  template <std::size_t Size>
  static TextElement Of(std::array<std::string, Size> Record::*array, std::size_t index) {
    return {[array, index](const Record& record) -> const std::string& { return (record.*array)[index]; },
            [array, index](Record& record) -> std::string& { return (record.*array)[index]; }};
  }
};

/// One field of a record: its column, where its value lives, and how it is stored.
template <class Record>
struct RecordField {
  std::string_view name;
  std::variant<std::int32_t Record::*, std::string Record::*, TextElement<Record>, std::int16_t Record::*>
      member;
  FieldRole role = FieldRole::Stored;
  std::string_view whenAbsent = {};  ///< text of an optional field that the database lacks
  unsigned generation = 1;           ///< of an optional field: which later layout brought its column
  FieldRule rule = {};               ///< the values that pages can make

  /// The same field with a rule.
  RecordField Allowing(const FieldRule& allowed) const {
    RecordField field = *this;
    field.rule = allowed;
    return field;
  }

  bool IsText() const { return member.index() == 1 || member.index() == 2; }
  /// Whether a study can differ in it: neither its number nor the same in all.
  bool IsContent() const { return role != FieldRole::Key && role != FieldRole::InsertOnly; }

  Variant Get(const Record& record) const {
    if (const auto* number = std::get_if<0>(&member)) {
      const bool unset = role == FieldRole::Nullable && record.*(*number) == kUnsetNumber;
      return unset ? Variant() : Variant(record.*(*number));
    }
    if (const auto* number = std::get_if<3>(&member)) return Variant(record.*(*number));
    if (const auto* text = std::get_if<1>(&member)) return Variant(record.*(*text));
    return Variant(std::get<2>(member).read(record));
  }
  void Set(Record& record, const Variant& value) const {
    if (const auto* number = std::get_if<0>(&member)) {
      record.*(*number) = role == FieldRole::Nullable ? ToInt32Or(value, kUnsetNumber) : ToInt32(value);
    } else if (const auto* shortNumber = std::get_if<3>(&member)) {
      record.*(*shortNumber) = ToInt16(value);
    } else if (const auto* text = std::get_if<1>(&member)) {
      record.*(*text) = ToText(value);
    } else {
      std::get<2>(member).place(record) = ToText(value);
    }
  }
};

/// Which generations of its optional columns a table has. Those of one generation came together.
class OptionalFields {
 public:
  void Add(unsigned generation) { generations_ |= Bit(generation); }
  bool Has(unsigned generation) const { return (generations_ & Bit(generation)) != 0; }

 private:
  static std::uint32_t Bit(unsigned generation) { return std::uint32_t{1} << generation; }

  std::uint32_t generations_ = 0;
};

namespace sql {

/// `INSERT INTO Table (A, B) VALUES (1, 'x')`
std::string InsertStatement(const host::Database& database, std::string_view table,
                            std::span<const host::Assignment> values);
/// `UPDATE Table SET A = 1, B = 'x' WHERE Id = 7`
std::string UpdateStatement(const host::Database& database, std::string_view table,
                            std::span<const host::Assignment> values, std::int32_t id);

}  // namespace sql

/// Asks whether a table has the record's optional columns, each generation by its first column. Asked anew
/// for every statement.
template <class Record>
OptionalFields FindOptionalFields(host::Database& database, std::string_view table,
                                  std::span<const RecordField<Record>> fields) {
  OptionalFields asked;
  OptionalFields found;
  for (const RecordField<Record>& field : fields) {
    if (field.role != FieldRole::Optional || asked.Has(field.generation)) continue;
    asked.Add(field.generation);
    if (database.ColumnExists(AsciiUpper(table), AsciiUpper(field.name))) found.Add(field.generation);
  }
  return found;
}

/// Whether a field has no column there.
template <class Record>
bool IsAbsent(const RecordField<Record>& field, const OptionalFields& optional) {
  return field.role == FieldRole::Optional && !optional.Has(field.generation);
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
                                           const OptionalFields& optional, KeyField key) {
  std::vector<host::Assignment> values;
  values.reserve(fields.size());
  const bool positive = HasPositive(record, fields);
  for (const RecordField<Record>& field : fields) {
    if (!field.IsContent() && key == KeyField::LeaveOut) continue;
    if (IsAbsent(field, optional)) continue;
    if (field.role == FieldRole::WhenPositive && !positive) continue;
    values.push_back({field.name, field.Get(record)});
  }
  return values;
}

/// The insert of a record into a table of its fields.
template <class Record>
std::string InsertStatementOf(host::Database& database, std::string_view table, const Record& record) {
  const auto fields = Record::Fields();
  const auto optional = FindOptionalFields(database, table, fields);
  return sql::InsertStatement(database, table, ColumnValues(record, fields, optional, KeyField::Include));
}

/// The value of a field that a row need not have, or not as a number; 0 then.
Variant NumberOrZero(const host::Recordset& row, std::string_view name);

/// Sets everything that is stored of a record, in the order of its columns, without what is only inserted.
template <class Record>
void SetFields(Record& record, std::span<const RecordField<Record>> fields, std::span<const Variant> values) {
  auto value = values.begin();
  for (const RecordField<Record>& field : fields) {
    if (field.role != FieldRole::InsertOnly) field.Set(record, *value++);
  }
}

/// Fills the record from the current row, under its key. A value that does not convert leaves the record as
/// it was.
template <class Record>
void LoadFields(Record& record, const host::Recordset& row, std::span<const RecordField<Record>> fields,
                const OptionalFields& optional, std::int32_t key) {
  std::vector<Variant> values;
  values.reserve(fields.size());
  for (const RecordField<Record>& field : fields) {
    if (field.role == FieldRole::InsertOnly) continue;
    if (field.role == FieldRole::Key) {
      values.emplace_back(key);
    } else if (IsAbsent(field, optional)) {
      values.emplace_back(field.whenAbsent);
    } else if (field.role == FieldRole::WhenPositive) {
      values.push_back(NumberOrZero(row, field.name));
    } else {
      values.push_back(row.Field(field.name));
    }
  }
  Record loaded = record;
  SetFields(loaded, fields, values);
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

/// Adds the values of a record that break the rules of their fields.
template <class Record>
void AddFaults(std::vector<RecordFault>& faults, const Record& record,
               std::span<const RecordField<Record>> fields) {
  for (const RecordField<Record>& field : fields) {
    const Variant value = field.Get(record);
    if (!field.rule.Holds(value)) faults.push_back({field.name, field.rule.FaultText(field.name, value)});
  }
}

/// The field that a property of the record sets, found by setting it; empty when it sets none.
template <class Record, class Value>
std::string_view FieldSetBy(void (Record::*set)(Value)) {
  using Plain = std::remove_cvref_t<Value>;
  const Record before;
  Record after;
  if constexpr (std::is_same_v<Plain, std::string>) {
    (after.*set)("?");
  } else {
    (after.*set)(Plain{1});
  }
  for (const RecordField<Record>& field : Record::Fields()) {
    if (field.Get(before) != field.Get(after)) return field.name;
  }
  return {};
}

}  // namespace kiv
