#include "database/schema.h"

#include <span>
#include <string>
#include <string_view>

#include "database/open_error.h"
#include "database/schema_steps.h"
#include "database/transaction.h"

namespace kiv::database {

namespace {

constexpr int kTimeoutSeconds = 60;

void RunScript(Connection& connection, std::string_view script) {
  constexpr std::string_view kBlankLine = "\n\n";
  while (!script.empty()) {
    const std::size_t end = script.find(kBlankLine);
    connection.ExecuteSql(std::string(script.substr(0, end)));
    script.remove_prefix(end == std::string_view::npos ? script.size() : end + kBlankLine.size());
  }
}

/// Whether some program has already put its tables or its mark into the database.
bool IsTaken(Connection& connection) {
  const auto rows = connection.OpenQuery(
      "SELECT 1 FROM sqlite_schema UNION ALL SELECT 1 FROM pragma_application_id WHERE application_id <> 0",
      kTimeoutSeconds);
  return !rows->EndOfFile();
}

}  // namespace

int NewestSchemaVersion() {
  return static_cast<int>(SqliteSchemaSteps().size());
}

int SchemaVersion(Connection& connection) {
  const auto rows = connection.OpenQuery(
      "SELECT user_version FROM pragma_user_version, pragma_application_id WHERE application_id = " +
          std::to_string(kApplicationId),
      kTimeoutSeconds);
  return rows->EndOfFile() ? 0 : static_cast<int>(std::get<std::int64_t>(rows->FieldAt(0).Value()));
}

void RefuseNewer(int version, const std::string& file) {
  if (version <= NewestSchemaVersion()) return;
  throw OpenError(OpenProblem::Newer, file,
                  "its layout is number " + std::to_string(version) + ", this program knows " +
                      std::to_string(NewestSchemaVersion()));
}

void UpgradeSchema(Connection& connection, int version) {
  const std::span<const std::string_view> steps = SqliteSchemaSteps();
  if (version < 1 || version > NewestSchemaVersion()) {
    throw Error(ErrorNumber::InvalidArgument,
                "There is no version " + std::to_string(version) + " of the database layout.");
  }
  // Usually there is nothing to do, and then nobody is kept from writing.
  if (SchemaVersion(connection) == NewestSchemaVersion()) return;

  Transaction transaction(connection);
  // Asked again, because another program may have run the steps in the meantime.
  const int present = SchemaVersion(connection);
  if (present == 0 && IsTaken(connection)) throw OpenError(OpenProblem::Foreign, connection.Name());
  RefuseNewer(present, connection.Name());
  if (present >= version) return;
  for (const std::string_view step :
       steps.subspan(static_cast<std::size_t>(present), static_cast<std::size_t>(version - present))) {
    RunScript(connection, step);
  }
  connection.ExecuteSql("PRAGMA application_id = " + std::to_string(kApplicationId));
  connection.ExecuteSql("PRAGMA user_version = " + std::to_string(version));
  transaction.Commit();
}

}  // namespace kiv::database
