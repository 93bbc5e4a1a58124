#include "client/error_log.h"

#include "client/store_error.h"

namespace kiv::client {

void ErrorLog::ReportError(const std::string&, const std::string&, const std::string&,
                           const std::string& message) {
  // A write routine reports from its handler: the exception tells more than its text.
  const std::exception_ptr handled = std::current_exception();
  failures_.push_back(handled ? handled : std::make_exception_ptr(StoreError(message)));
}

void ErrorLog::ReportError() {
  failures_.push_back(std::current_exception());
}

void ErrorLog::Watch::RaiseFirst() const {
  if (log_.failures_.size() > start_) std::rethrow_exception(log_.failures_[start_]);
}

}  // namespace kiv::client
