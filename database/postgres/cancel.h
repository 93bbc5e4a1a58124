#pragma once

#include "database/postgres/libpq.h"

namespace kiv::database {

/// Asks the server to end the statement that runs on a connection, without waiting for it: some seconds at
/// most are spent on that in the background. Nothing happens when it cannot be done.
void CancelInBackground(const PGconn* connection);

}  // namespace kiv::database
