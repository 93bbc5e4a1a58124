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

void ReadStudyRow(const std::string& sql, std::string_view kind, const char* routine,
                  const std::string& message, const std::function<void(const host::Recordset&)>& read) {
  const auto report = [&] {
    host::TheErrorReporter().ReportError(std::string(kind), kModuleName, routine, message);
  };
  std::shared_ptr<host::Recordset> rows;
  try {
    rows = OpenQuery(sql);
    if (rows) {
      read(*rows);
      rows->Close();
    }
  } catch (const host::DatabaseError&) {
    return report();
  }
  if (!rows) report();
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
