#pragma once

#include <ctime>
#include <string>

namespace kiv::host {

/// Who works with the host, and when.
class Session {
 public:
  virtual ~Session() = default;

  /// Login name of the current user.
  virtual std::string UserName() const = 0;
  /// The current local time.
  virtual std::tm LocalTime() const = 0;
};

}  // namespace kiv::host
