#include "database/postgres/postgres_error.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kiv::database {

namespace {

struct CauseOfState {
  std::string_view stateStart;
  FailureCause cause;
};

constexpr std::array kCauses = {
    CauseOfState{"40001", FailureCause::Busy},            // serialization failure
    CauseOfState{"40P01", FailureCause::Busy},            // deadlock
    CauseOfState{"55P03", FailureCause::Busy},            // lock time-out
    CauseOfState{"57014", FailureCause::TimedOut},        // statement time-out
    CauseOfState{"25006", FailureCause::ReadOnly},        // read-only transaction
    CauseOfState{"42501", FailureCause::ReadOnly},        // no privilege
    CauseOfState{"53100", FailureCause::DiskFull},        // no room
    CauseOfState{"58030", FailureCause::DiskFull},        // input or output failed
    CauseOfState{"23", FailureCause::Constraint},         // every integrity violation
    CauseOfState{"XX001", FailureCause::Damaged},         // a page
    CauseOfState{"XX002", FailureCause::Damaged},         // an index
    CauseOfState{"08", FailureCause::ConnectionLost},     // every connection exception
    CauseOfState{"57P", FailureCause::ConnectionLost},    // the server shuts down, or ended the session
    CauseOfState{"25P03", FailureCause::ConnectionLost},  // idle for too long inside a transaction
};

std::string FieldOf(const PGresult* result, int field) {
  const char* text = Pq().PQresultErrorField(result, field);
  return text ? text : "";
}

FailureCause CauseOf(const PGconn* connection, const PGresult* result) {
  const std::string state = FieldOf(result, PG_DIAG_SQLSTATE);
  const auto* const found = std::ranges::find_if(
      kCauses, [&state](const CauseOfState& cause) { return state.starts_with(cause.stateStart); });
  if (found != kCauses.end()) return found->cause;
  return Pq().PQstatus(connection) == CONNECTION_OK ? FailureCause::Other : FailureCause::ConnectionLost;
}

std::string TextOf(const PGconn* connection, const PGresult* result) {
  const std::string text = FieldOf(result, PG_DIAG_MESSAGE_PRIMARY);
  if (text.empty()) return ConnectionText(connection);
  const std::string detail = FieldOf(result, PG_DIAG_MESSAGE_DETAIL);
  return detail.empty() ? text : text + ": " + detail;
}

}  // namespace

PostgresError::PostgresError(const PGconn* connection, const PGresult* result, const std::string& statement)
    : StatementError(CauseOf(connection, result), TextOf(connection, result), statement),
      sqlState_(FieldOf(result, PG_DIAG_SQLSTATE)) {}

std::string ConnectionText(const PGconn* connection) {
  std::string line;
  for (const char* c = Pq().PQerrorMessage(connection); *c != '\0'; ++c) {
    const bool blank = *c == '\n' || *c == '\t' || *c == ' ';
    if (!blank) line += *c;
    if (blank && !line.empty() && line.back() != ' ') line += ' ';
  }
  while (line.ends_with(' ')) line.pop_back();
  return line.empty() ? "The server gave no answer." : line;
}

OpenError AsOpenError(const PostgresError& error, const std::string& name) {
  switch (error.Cause()) {
    case FailureCause::Busy: return {OpenProblem::Locked, name};
    case FailureCause::Cancelled: return {OpenProblem::Cancelled, name};
    case FailureCause::TimedOut:
    case FailureCause::ConnectionLost: return {OpenProblem::Unreachable, name, error.what()};
    default: return {OpenProblem::NoTables, name, error.what()};
  }
}

}  // namespace kiv::database
