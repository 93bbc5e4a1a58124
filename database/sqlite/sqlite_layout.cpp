#include "database/sqlite/sqlite_layout.h"

#include <string>

namespace kiv::database {

namespace {

constexpr SchemaWord kSqliteWords[] = {
    {"@NUMBERED@", "INTEGER PRIMARY KEY"},
    {"@NUMBERED_FOR_GOOD@", "INTEGER PRIMARY KEY AUTOINCREMENT"},
    {"@UNIQUE_NAME@", "TEXT NOT NULL UNIQUE COLLATE NOCASE"},
    {"@WITHOUT_ROWID@", " WITHOUT ROWID"},
};

}  // namespace

std::string_view SqliteLayout::Engine() const {
  return "sqlite";
}

std::span<const SchemaWord> SqliteLayout::Words() const {
  return kSqliteWords;
}

int SqliteLayout::Version(Connection& connection) const {
  const auto rows = connection.OpenQuery(
      "SELECT user_version FROM pragma_user_version, pragma_application_id WHERE application_id = " +
          std::to_string(kApplicationId),
      host::kQueryTimeoutSeconds);
  return rows->EndOfFile() ? 0 : static_cast<int>(std::get<std::int64_t>(rows->FieldAt(0).Value()));
}

void SqliteLayout::SetVersion(Connection& connection, int version) const {
  connection.ExecuteSql("PRAGMA application_id = " + std::to_string(kApplicationId));
  connection.ExecuteSql("PRAGMA user_version = " + std::to_string(version));
}

bool SqliteLayout::IsTaken(Connection& connection) const {
  const auto rows = connection.OpenQuery(
      "SELECT 1 FROM sqlite_schema UNION ALL SELECT 1 FROM pragma_application_id WHERE application_id <> 0",
      host::kQueryTimeoutSeconds);
  return !rows->EndOfFile();
}

}  // namespace kiv::database
