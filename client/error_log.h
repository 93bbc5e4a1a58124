#pragma once

#include <cstddef>
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
    explicit Watch(const ErrorLog& log) : log_(log), start_(log.messages_.size()) {}
    /// The first message reported since; empty when there was none.
    std::string FirstMessage() const {
      return log_.messages_.size() > start_ ? log_.messages_[start_] : std::string();
    }

   private:
    const ErrorLog& log_;
    std::size_t start_;
  };

 private:
  std::vector<std::string> messages_;
};

}  // namespace kiv::client
