#include "database/sqlite/sqlite_error.h"

#include <sqlite3.h>

#include <cerrno>
#include <system_error>

namespace kiv::database {

namespace {

FailureCause CauseOf(int extendedCode) {
  switch (extendedCode & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return FailureCause::Busy;
    case SQLITE_INTERRUPT: return FailureCause::TimedOut;
    case SQLITE_READONLY: return FailureCause::ReadOnly;
    case SQLITE_IOERR:  // a used-up quota, for one
    case SQLITE_FULL: return FailureCause::DiskFull;
    case SQLITE_NOMEM: return FailureCause::NoMemory;
    case SQLITE_CONSTRAINT: return FailureCause::Constraint;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: return FailureCause::Damaged;
    default: return FailureCause::Other;
  }
}

}  // namespace

SqliteError::SqliteError(int extendedCode, const std::string& driverText, const std::string& statement)
    : StatementError(CauseOf(extendedCode), driverText, statement), extendedCode_(extendedCode) {}

SqliteError LastSqliteError(sqlite3* database, const std::string& statement) {
  const int code = sqlite3_extended_errcode(database);
  std::string text = sqlite3_errmsg(database);
  // "unable to open database file" alone does not tell a full disk from a missing permission.
  // "No such file" only comes from the second attempt, for reading, after creating was refused.
  const int systemError = sqlite3_system_errno(database);
  const bool fromSystem = (code & 0xFF) == SQLITE_CANTOPEN || (code & 0xFF) == SQLITE_IOERR;
  if (fromSystem && systemError != 0 && systemError != ENOENT)
    text += ": " + std::system_category().message(systemError);
  return {code, text, statement};
}

OpenError AsOpenError(const SqliteError& error, const std::string& file, FileKind before) {
  if (error.Cause() == FailureCause::Cancelled) return {OpenProblem::Cancelled, file};
  switch (error.Code()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return {OpenProblem::Locked, file};
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      // Its head was sound, or it would not have been opened at all.
      return {before == FileKind::SqliteDatabase ? OpenProblem::Damaged : OpenProblem::NotADatabase, file,
              error.what()};
    default:
      return {before == FileKind::SqliteDatabase ? OpenProblem::Unreadable : OpenProblem::CannotCreate, file,
              error.what()};
  }
}

}  // namespace kiv::database
