#include "store/studies/error_log.h"

#include "store/store_error.h"

namespace kiv::store {

namespace {

/// What is to be raised for a message that was reported while this exception was handled.
std::exception_ptr FailureBehind(const std::exception_ptr& handled, const std::string& message) {
  if (!handled) return std::make_exception_ptr(StoreError(message));
  try {
    std::rethrow_exception(handled);
  } catch (const std::exception& error) {
    if (message != error.what()) {
      return std::make_exception_ptr(StoreError(message + " (" + error.what() + ")"));
    }
  } catch (...) {
    // It says nothing that could be told.
  }
  return handled;  // which tells more than its text
}

}  // namespace

void ErrorLog::ReportError(const std::string&, const std::string&, const std::string&,
                           const std::string& message) {
  Take(FailureBehind(std::current_exception(), message));
}

void ErrorLog::ReportError() {
  Take(std::current_exception());
}

void ErrorLog::Take(const std::exception_ptr& failure) {
  if (watches_ > 0) {
    failures_.push_back(failure);
    return;
  }
  try {
    std::rethrow_exception(failure);
  } catch (const std::exception& error) {
    if (teller_) teller_(error);
  }
}

ErrorLog::Watch::Watch(ErrorLog& log) : log_(log), start_(log.failures_.size()) {
  ++log_.watches_;
}

ErrorLog::Watch::~Watch() {
  log_.failures_.resize(start_);
  --log_.watches_;
}

void ErrorLog::Watch::RaiseFirst() const {
  if (log_.failures_.size() > start_) std::rethrow_exception(log_.failures_[start_]);
}

}  // namespace kiv::store
