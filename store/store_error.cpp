#include "store/store_error.h"

#include "database/statement_error.h"

namespace kiv::store {

std::string FailureText(const std::exception& failure) {
  using database::FailureCause;
  const auto* statement = dynamic_cast<const database::StatementError*>(&failure);
  switch (statement ? statement->Cause() : FailureCause::Other) {
    case FailureCause::Busy:
      return "The study database is in use by another program. Wait until it has finished, then try again.";
    case FailureCause::ReadOnly:
      return "The study database is read-only. Ask for permission to write the file, or use another "
             "database.";
    case FailureCause::DiskFull:
      return "The disk of the study database is full or failing. Make room on it or have it checked, then "
             "try "
             "again.";
    case FailureCause::ConnectionLost:
      return "The connection to the study database was lost. Check the network, then try again.";
    case FailureCause::CommitUnknown:
      return "The answer to the last change did not come, so that it may be stored or not. Check the "
             "network, look whether it was stored, then try again.";
    case FailureCause::TimedOut:
      return "The study database did not answer in time. Check the network or ask whoever runs the database, "
             "then try again.";
    case FailureCause::Cancelled: return "The wait for the study database was cancelled. Try again.";
    case FailureCause::Damaged: return "The study database is damaged. Restore it from a copy.";
    case FailureCause::FileChanged:
    case FailureCause::Constraint:
    case FailureCause::Other: return failure.what();
  }
  return failure.what();
}

}  // namespace kiv::store
