#pragma once

#include <memory>
#include <string>

#include "database/connection.h"
#include "database/sql_connection.h"

namespace kiv::database {

/// Opens a study database on a PostgreSQL server and brings its tables up to date; one that this user cannot
/// change is used as it is. Raises OpenError.
std::shared_ptr<SqlConnection> OpenPostgresStudies(const std::string& url, OpenMode mode,
                                                   WaitHandler waitHandler);

}  // namespace kiv::database
