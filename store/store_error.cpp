#include "store/store_error.h"

#include <new>
#include <stdexcept>

#include "database/statement_error.h"

namespace kiv::store {

namespace {

/// What a database says in its own words is a hint for whoever looks after it.
std::string WithDetail(const std::string& sentence, const std::string& detail, const std::string& advice) {
  return sentence + " (" + detail + "). " + advice;
}

constexpr const char* kNoMemory =
    "There is not enough memory for this, and nothing was changed. Close other programs or take smaller "
    "parts, "
    "then try again.";

std::string TextOf(const database::StatementError& failure) {
  using database::FailureCause;
  switch (failure.Cause()) {
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
    case FailureCause::NoMemory: return kNoMemory;
    case FailureCause::FileChanged: return failure.what();
    case FailureCause::Constraint:
      return WithDetail("The study database refuses a value that its tables do not allow", failure.what(),
                        "Look whether somebody else changed what it belongs to, then try again.");
    case FailureCause::Other:
      return WithDetail("The study database cannot do what was asked of it", failure.what(),
                        "If that happens again, restore it from a copy or ask whoever looks after it.");
  }
  return failure.what();
}

}  // namespace

std::string FailureText(const std::exception& failure) {
  if (const auto* statement = dynamic_cast<const database::StatementError*>(&failure)) {
    return TextOf(*statement);
  }
  const bool noMemory = dynamic_cast<const std::bad_alloc*>(&failure) != nullptr ||
                        dynamic_cast<const std::length_error*>(&failure) != nullptr;
  return noMemory ? kNoMemory : failure.what();
}

}  // namespace kiv::store
