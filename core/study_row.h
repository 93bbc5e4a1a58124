#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/fields.h"
#include "core/msql.h"

/// The row that a study kind keeps for each study, read and written by the kind's field table.
namespace kiv::MSQL {

struct StudyTable {
  std::string_view kind;  ///< caption of error reports
  std::string_view name;
};

/// Loads the row of a study. A database failure is reported and leaves the record as it was; so does a
/// missing row, silently.
template <class Record>
void LoadStudyRow(const StudyTable& table, const char* routine, std::int32_t id, Record& record) {
  const std::string name(table.name);
  ReadStudyRow("SELECT * FROM " + name + " WHERE Id = " + std::to_string(id), table.kind, routine,
               "Unable to load study types data from " + name, [&](const host::Recordset& rows) {
                 if (rows.RecordCount() <= 0) return;
                 const auto fields = Record::Fields();
                 LoadFields(record, rows, fields, FindOptionalFields(Database(), table.name, fields), id);
               });
}

/// Both write routines report their own failures; false when the row was not written.
template <class Record>
bool InsertStudyRow(const StudyTable& table, const char* routine, const Record& record) {
  return TrapErrors(table.kind, routine, [&](host::Database& database) {
    database.ExecuteSql(InsertStatementOf(database, table.name, record));
  });
}

template <class Record>
bool UpdateStudyRow(const StudyTable& table, const char* routine, const Record& record) {
  return TrapErrors(table.kind, routine, [&](host::Database& database) {
    const auto fields = Record::Fields();
    const auto optional = FindOptionalFields(database, table.name, fields);
    const auto values = ColumnValues(record, fields, optional, KeyField::LeaveOut);
    database.ExecuteSql(sql::UpdateStatement(database, table.name, values, record.ID()));
  });
}

}  // namespace kiv::MSQL
