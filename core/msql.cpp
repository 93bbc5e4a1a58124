#include "core/msql.h"

#include <exception>

#include "host/scope.h"

namespace kiv::MSQL {

host::Database& Database() {
  return host::Scope::Current().TheDatabase();
}

std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql) {
  return Database().OpenQuery(sql, host::kQueryTimeoutSeconds);
}

std::shared_ptr<host::Recordset> OpenStudyRow(const std::string& sql, std::string_view kind,
                                              const char* routine, const std::string& message) {
  std::shared_ptr<host::Recordset> rows;
  try {
    rows = OpenQuery(sql);
  } catch (const host::DatabaseError&) {
    // Told like a missing result set.
  }
  if (!rows) host::TheErrorReporter().ReportError(std::string(kind), kModuleName, routine, message);
  return rows;
}

bool TrapErrors(std::string_view kind, const char* routine,
                const std::function<void(host::Database&)>& write) {
  try {
    write(Database());
    return true;
  } catch (const std::exception& error) {
    host::TheErrorReporter().ReportError(std::string(kind), kModuleName, routine, error.what());
    return false;
  }
}

}  // namespace kiv::MSQL
