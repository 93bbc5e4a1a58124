#pragma once

#include <string>

#include "database/open_error.h"
#include "database/postgres/libpq.h"
#include "database/statement_error.h"

namespace kiv::database {

/// A failure that PostgreSQL reports, or the loss of its server.
class PostgresError : public StatementError {
 public:
  /// A failed statement; the result may be null when there was no answer.
  PostgresError(const PGconn* connection, const PGresult* result, const std::string& statement);
  /// A failure on this side.
  PostgresError(FailureCause cause, const std::string& text, const std::string& statement)
      : StatementError(cause, text, statement) {}

  /// The five characters of the SQL standard, such as 23505; empty when the server said nothing.
  const std::string& SqlState() const { return sqlState_; }

 private:
  std::string sqlState_;
};

/// What the client library says of a connection, on one line.
std::string ConnectionText(const PGconn* connection);

/// What a failure while opening means to the user.
OpenError AsOpenError(const PostgresError& error, const std::string& name);

}  // namespace kiv::database
