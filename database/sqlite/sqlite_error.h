#pragma once

#include <string>

#include "database/open_error.h"
#include "database/sqlite/sqlite_file.h"
#include "database/statement_error.h"

struct sqlite3;

namespace kiv::database {

/// A failure that SQLite reports.
class SqliteError : public StatementError {
 public:
  SqliteError(int extendedCode, const std::string& driverText, const std::string& statement);
  /// A failure whose cause is known otherwise.
  SqliteError(FailureCause cause, int extendedCode, const std::string& driverText,
              const std::string& statement)
      : StatementError(cause, driverText, statement), extendedCode_(extendedCode) {}

  /// The result code without its details, such as SQLITE_CONSTRAINT.
  int Code() const { return extendedCode_ & 0xFF; }
  /// The exact result code, such as SQLITE_CONSTRAINT_FOREIGNKEY.
  int ExtendedCode() const { return extendedCode_; }

 private:
  int extendedCode_;
};

/// The failure of the last call on a database.
SqliteError LastSqliteError(sqlite3* database, const std::string& statement);

/// What a failure while opening means to the user, who had a file of that kind there before.
OpenError AsOpenError(const SqliteError& error, const std::string& file, FileKind before);

}  // namespace kiv::database
