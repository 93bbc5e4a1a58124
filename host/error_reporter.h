#pragma once

#include <string>

namespace kiv::host {

/// Where the library reports failures that it does not raise.
class ErrorReporter {
 public:
  virtual ~ErrorReporter() = default;

  virtual void ReportError(const std::string& caption, const std::string& module, const std::string& routine,
                           const std::string& message) = 0;
  /// Reports the exception being handled; called from a catch block only.
  virtual void ReportError() = 0;
};

}  // namespace kiv::host
