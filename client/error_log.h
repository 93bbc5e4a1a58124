#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <vector>

#include "host/error_reporter.h"

namespace kiv::client {

/// Keeps what the library reports, so that a save or a load can tell whether all went well.
class ErrorLog : public host::ErrorReporter {
 public:
  void ReportError(const std::string& caption, const std::string& module, const std::string& routine,
                   const std::string& message) override;
  void ReportError() override;

  /// Listens from now until it goes away.
  class Watch {
   public:
    explicit Watch(const ErrorLog& log) : log_(log), start_(log.failures_.size()) {}
    /// Raises the first failure reported since: the exception behind it where there was one, else a
    /// StoreError with its message.
    void RaiseFirst() const;

   private:
    const ErrorLog& log_;
    std::size_t start_;
  };

 private:
  std::vector<std::exception_ptr> failures_;
};

}  // namespace kiv::client
