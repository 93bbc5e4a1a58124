#include "database/open.h"

#include <utility>

#include "database/postgres/open_postgres.h"
#include "database/schema.h"
#include "database/server_address.h"
#include "database/sqlite/sqlite_database.h"
#include "database/sqlite/sqlite_file.h"
#include "database/sqlite/sqlite_layout.h"
#include "database/sqlite/stored_functions.h"

namespace kiv::database {

namespace {

void RefuseUnsuitable(const FileFacts& facts, const std::string& utf8Path) {
  if (facts.kind != FileKind::SqliteDatabase) return;
  if (facts.applicationId != kApplicationId) throw OpenError(OpenProblem::Foreign, utf8Path);
  RefuseNewer(facts.userVersion, utf8Path);
}

std::shared_ptr<SqlConnection> OpenStudyFile(const std::string& utf8Path, OpenMode mode,
                                             WaitHandler waitHandler) {
  // Before SQLite opens the file, which would already play back a journal.
  const FileFacts facts = InspectFile(utf8Path);
  RefuseUnsuitable(facts, utf8Path);
  const std::shared_ptr<SqliteDatabase> database =
      SqliteDatabase::Open(utf8Path, mode, std::move(waitHandler));
  try {
    if (!database->ReadOnly()) {
      database->SetStatementLimit(kUpgradeLimit);
      UpgradeSchema(*database);
      database->SetStatementLimit(kStatementLimit);
    } else if (SchemaVersion(*database) == 0) {
      throw OpenError(OpenProblem::CannotCreate, utf8Path, "the file is write-protected");
    }
    RegisterStoredFunctions(*database);
    database->ExpectLayout(SchemaVersion(*database));
  } catch (const SqliteError& error) {
    throw AsOpenError(error, utf8Path, facts.kind);
  }
  return database;
}

}  // namespace

std::shared_ptr<SqlConnection> OpenStudyDatabase(const std::string& name, OpenMode mode,
                                                 WaitHandler waitHandler) {
  return IsServerAddress(name) ? OpenPostgresStudies(name, mode, std::move(waitHandler))
                               : OpenStudyFile(name, mode, std::move(waitHandler));
}

}  // namespace kiv::database
