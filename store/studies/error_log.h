#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "host/error_reporter.h"

namespace kiv::store {

/// Takes what the library reports: a save or a load that watches learns whether all went well; what nobody
/// watches is told to the user at once.
class ErrorLog : public host::ErrorReporter {
 public:
  using Teller = std::function<void(const std::exception&)>;

  /// Until it is set, what nobody watches goes untold.
  void SetTeller(Teller teller) { teller_ = std::move(teller); }

  /// What failed and, where the library told a text of its own for it, the reason that the driver gave.
  void ReportError(const std::string& caption, const std::string& module, const std::string& routine,
                   const std::string& message) override;
  void ReportError() override;

  /// Listens from now until it goes away.
  class Watch {
   public:
    explicit Watch(ErrorLog& log);
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch();

    /// Raises the first failure reported since: the exception behind it where there was one, else a
    /// StoreError with its message.
    void RaiseFirst() const;

   private:
    ErrorLog& log_;
    std::size_t start_;
  };

 private:
  void Take(const std::exception_ptr& failure);

  Teller teller_;
  int watches_ = 0;
  std::vector<std::exception_ptr> failures_;
};

}  // namespace kiv::store
