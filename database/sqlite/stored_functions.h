#pragma once

#include "database/sqlite/sqlite_database.h"

namespace kiv::database {

/// Gives an SQLite study database the stored functions that the library calls. They read the tables of that
/// same database.
void RegisterStoredFunctions(SqliteDatabase& database);

}  // namespace kiv::database
