#pragma once

#include "host/database.h"

namespace kiv::database {

/// Why a statement failed, as far as a user can do something about it.
enum class FailureCause {
  Busy,            ///< another connection holds what the statement needs
  ReadOnly,        ///< the database cannot be written by this user
  DiskFull,        ///< or failing
  ConnectionLost,  ///< the server is gone, or the way to it
  CommitUnknown,   ///< the answer to a commit did not come: the changes are stored or not
  TimedOut,        ///< no answer within the time that it may take
  Cancelled,       ///< the wait handler gave it up
  Constraint,      ///< a rule of the tables forbids the values, such as a reference to a row that is gone
  Damaged,         ///< the database contradicts itself
  NoMemory,        ///< the statement needs more than there is
  FileChanged,     ///< somebody took the open file away or made another of it; the text tells how
  Other
};

/// A statement that a ready adapter could not carry out.
class StatementError : public host::DatabaseError {
 public:
  StatementError(FailureCause cause, const std::string& driverText, std::string statement)
      : DatabaseError(driverText, std::move(statement)), cause_(cause) {}

  FailureCause Cause() const { return cause_; }

 private:
  FailureCause cause_;
};

}  // namespace kiv::database
