#pragma once

#include <cstdint>
#include <string>

#include "database/connection.h"

/// The layout of a study database in SQLite. Its version is the number of the last step that was run.
namespace kiv::database {

/// Marks an SQLite file as a study database; the letters KIVS.
inline constexpr std::int32_t kApplicationId = 0x4B495653;

int NewestSchemaVersion();

/// 0 when the database has no study tables yet.
int SchemaVersion(Connection& connection);

/// Runs the missing steps up to a version, all or none; two programs may do so at the same time. A later
/// version than the wanted one stays. Raises OpenError, and changes nothing, when the database has tables of
/// another program or comes from a newer version of this one.
void UpgradeSchema(Connection& connection, int version = NewestSchemaVersion());

/// Raises OpenError for a version that this program does not know.
void RefuseNewer(int version, const std::string& file);

}  // namespace kiv::database
