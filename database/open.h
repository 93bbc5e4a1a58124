#pragma once

#include <memory>
#include <string>

#include "database/sqlite_database.h"

namespace kiv::database {

/// Opens a study database, brings its tables up to date and gives it its stored functions; one that cannot be
/// written is used as it is.
/// Raises OpenError. No file but a study database is ever changed.
std::shared_ptr<SqliteDatabase> OpenStudyDatabase(const std::string& utf8Path, OpenMode mode);

}  // namespace kiv::database
