#include "database/postgres/postgres_layout.h"

#include <cstdint>
#include <string>

#include "database/schema_steps.h"

namespace kiv::database {

namespace {

/// Any number will do that other programs are unlikely to lock: the letters KIVS.
constexpr std::int32_t kAdvisoryLock = 0x4B495653;

}  // namespace

std::span<const std::string_view> PostgresLayout::Steps() const {
  return PostgresSchemaSteps();
}

int PostgresLayout::Version(Connection& connection) const {
  if (!connection.ColumnExists("kiv_schema_version", "version")) return 0;
  const auto rows =
      connection.OpenQuery("SELECT version FROM kiv_schema_version", host::kQueryTimeoutSeconds);
  return rows->EndOfFile() ? 0 : static_cast<int>(std::get<std::int64_t>(rows->FieldAt(0).Value()));
}

void PostgresLayout::SetVersion(Connection& connection, int version) const {
  connection.ExecuteSql("CREATE TABLE IF NOT EXISTS kiv_schema_version (version INTEGER NOT NULL)");
  connection.ExecuteSql("DELETE FROM kiv_schema_version");
  connection.ExecuteSql("INSERT INTO kiv_schema_version (version) VALUES (" + std::to_string(version) + ")");
}

bool PostgresLayout::IsTaken(Connection& connection) const {
  // What an extension brought along belongs to nobody else.
  const auto rows = connection.OpenQuery(
      "SELECT 1 FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname = "
      "current_schema() AND c.relkind IN ('r', 'p', 'v', 'm', 'f') AND NOT EXISTS (SELECT 1 FROM pg_depend d "
      "WHERE d.classid = 'pg_class'::regclass AND d.objid = c.oid AND d.deptype = 'e') LIMIT 1",
      host::kQueryTimeoutSeconds);
  return !rows->EndOfFile();
}

void PostgresLayout::LockOutOthers(Connection& connection) const {
  connection.OpenQuery("SELECT pg_advisory_xact_lock(" + std::to_string(kAdvisoryLock) + ")",
                       host::kQueryTimeoutSeconds);
}

}  // namespace kiv::database
