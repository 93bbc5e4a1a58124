#pragma once

#include <memory>
#include <string>

#include "host/database.h"

namespace kiv::store {

/// Runs one of the store's own queries.
inline std::shared_ptr<host::Recordset> Query(host::Database& database, const std::string& sql) {
  return database.OpenQuery(sql, host::kQueryTimeoutSeconds);
}

}  // namespace kiv::store
