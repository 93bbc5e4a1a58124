#pragma once

#include <string>

#include "host/database.h"

namespace kiv::test {

/// Looks at a study database with statements of its own, and says what in it breaks a promise, a line each:
/// rows that belong to nothing, studies without their kind's row, a history with gaps, or one whose newest
/// entry says something else than the rows. Empty when all is well.
std::string Audit(host::Database& database);
/// The same of a SQLite database, whose own checks come first.
std::string AuditFile(host::Database& database);

}  // namespace kiv::test
