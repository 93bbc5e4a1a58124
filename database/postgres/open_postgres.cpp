#include "database/postgres/open_postgres.h"

#include <utility>

#include "database/postgres/postgres_database.h"
#include "database/schema.h"

namespace kiv::database {

namespace {

constexpr const char* kReadOnlyServer =
    "the server is read-only, such as a standby; name the one that takes writes";

/// Tables of an earlier layout can be used by somebody who may not change them.
void UpgradeIfPermitted(PostgresDatabase& database, int present) {
  if (present > 0 && database.ReadOnly()) return;
  // Without anything to do a server that falls silent is not waited for that long.
  if (present < NewestSchemaVersion()) database.SetStatementLimit(kUpgradeLimit);
  try {
    UpgradeSchema(database);
  } catch (const PostgresError& error) {
    if (present == 0 || error.Cause() != FailureCause::ReadOnly) throw;
  }
  database.SetStatementLimit(kStatementLimit);
}

}  // namespace

std::shared_ptr<SqlConnection> OpenPostgresStudies(const std::string& url, OpenMode mode,
                                                   WaitHandler waitHandler) {
  const std::shared_ptr<PostgresDatabase> database = PostgresDatabase::Open(url, std::move(waitHandler));
  try {
    const int present = SchemaVersion(*database);
    RefuseNewer(present, database->Name());
    if (present == 0 && mode == OpenMode::MustExist) throw OpenError(OpenProblem::Missing, database->Name());
    if (present == 0 && database->ReadOnly())
      throw OpenError(OpenProblem::NoTables, database->Name(), kReadOnlyServer);
    UpgradeIfPermitted(*database, present);
  } catch (const PostgresError& error) {
    throw AsOpenError(error, database->Name());
  }
  return database;
}

}  // namespace kiv::database
