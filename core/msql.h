#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/database.h"

/// The persistence module. The routines of each study kind are declared beside its record.
namespace kiv::MSQL {

/// The module's name in error reports.
inline constexpr const char* kModuleName = "MSQL";

/// The one database object of the current host, made by its factory on first use.
/// Raises error 91 when the host has none to give.
host::Database& Database();

/// Opens a query with the time-out that every query of the library has; null when no result set came back.
std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql);

/// Runs the query of a study's own row, gives the result set to `read` and closes it. When no result set
/// comes back, or the database fails at any of that, the message is reported under the study kind and the
/// routine's name; a failure while it is being handled, so that a reporter can tell the driver's reason too.
void ReadStudyRow(const std::string& sql, std::string_view kind, const char* routine,
                  const std::string& message, const std::function<void(const host::Recordset&)>& read);

/// Runs a write routine that keeps its failures to itself: they are reported under the study kind and the
/// routine's name. False when it failed.
bool TrapErrors(std::string_view kind, const char* routine,
                const std::function<void(host::Database&)>& write);

}  // namespace kiv::MSQL
