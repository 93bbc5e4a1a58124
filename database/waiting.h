#pragma once

#include <chrono>
#include <utility>

#include "database/wait.h"

namespace kiv::database {

/// Asks the wait handler of a connection from time to time, and knows whether that one runs.
class Waiting {
 public:
  using Clock = std::chrono::steady_clock;

  void SetHandler(WaitHandler handler) { handler_ = std::move(handler); }
  /// Whether the handler runs, which must not use the connection.
  bool Asking() const { return asking_; }

  /// When the handler is to be asked next in a wait that began then; never without one.
  Clock::time_point NextQuestion(Clock::time_point since) const;
  /// Asks the handler when it is time to; false gives up. Raises what the handler raises.
  bool GoesOn(Wait::For what, Clock::time_point since);

 private:
  WaitHandler handler_;
  Clock::time_point asked_ = Clock::time_point::min();
  bool asking_ = false;
};

}  // namespace kiv::database
