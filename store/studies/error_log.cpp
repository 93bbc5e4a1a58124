#include "store/studies/error_log.h"

#include "store/store_error.h"

namespace kiv::store {

void ErrorLog::ReportError(const std::string&, const std::string&, const std::string&,
                           const std::string& message) {
  // A write routine reports from its handler: the exception tells more than its text.
  const std::exception_ptr handled = std::current_exception();
  Take(handled ? handled : std::make_exception_ptr(StoreError(message)));
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
