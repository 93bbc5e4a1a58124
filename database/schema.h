#pragma once

#include <string>

#include "database/sql_connection.h"

/// The tables of a study database. Their version is the number of the last step that was run; every kind of
/// database has the same steps.
namespace kiv::database {

int NewestSchemaVersion();

/// 0 when the database has no study tables yet.
int SchemaVersion(SqlConnection& connection);

/// Runs the missing steps up to a version, all or none; two programs may do so at the same time. A later
/// version than the wanted one stays. Raises OpenError, and changes nothing, when the database has tables of
/// another program or comes from a newer version of this one.
void UpgradeSchema(SqlConnection& connection, int version = NewestSchemaVersion());

/// Raises OpenError for a version that this program does not know.
void RefuseNewer(int version, const std::string& name);

}  // namespace kiv::database
