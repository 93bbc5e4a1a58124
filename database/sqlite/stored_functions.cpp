#include "database/sqlite/stored_functions.h"

#include <charconv>
#include <cstdint>
#include <string>

#include "host/constants.h"

namespace kiv::database {

namespace {

std::string FindCellTech(SqliteDatabase& database, const std::string& instance) {
  std::int32_t number = 0;
  const char* const end = instance.data() + instance.size();
  const auto [rest, problem] = std::from_chars(instance.data(), end, number);
  if (problem != std::errc() || rest != end) return {};
  const auto rows =
      database.OpenQuery("SELECT technology FROM kiv_network WHERE instance_id = " + std::to_string(number),
                         host::kQueryTimeoutSeconds);
  return rows->EndOfFile() ? std::string() : std::get<std::string>(rows->FieldAt(0).Value());
}

}  // namespace

void RegisterStoredFunctions(SqliteDatabase& database) {
  // The database owns the function, so the reference cannot outlive it.
  database.RegisterTextFunction(host::kFindCellTech, [&database](const std::string& instance) {
    return FindCellTech(database, instance);
  });
}

}  // namespace kiv::database
