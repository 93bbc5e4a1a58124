#include "client/error_log.h"

#include <exception>

namespace kiv::client {

void ErrorLog::ReportError(const std::string&, const std::string&, const std::string&,
                           const std::string& message) {
  messages_.push_back(message);
}

void ErrorLog::ReportError() {
  try {
    throw;
  } catch (const std::exception& error) {
    messages_.emplace_back(error.what());
  } catch (...) {
    messages_.emplace_back("An unknown error occurred.");
  }
}

}  // namespace kiv::client
