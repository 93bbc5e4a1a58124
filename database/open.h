#pragma once

#include <memory>
#include <string>

#include "database/sql_connection.h"

namespace kiv::database {

/// Opens a study database, brings its tables up to date and gives it its stored functions; one that cannot be
/// written is used as it is. The name is a file, or the address of a PostgreSQL database as libpq
/// takes it (postgresql://..., or host=... dbname=...).
/// The wait handler is asked while the database is opened, and stays that of the connection.
/// Raises OpenError. No file but a study database is ever changed.
std::shared_ptr<SqlConnection> OpenStudyDatabase(const std::string& name, OpenMode mode,
                                                 WaitHandler waitHandler = {});

}  // namespace kiv::database
