#pragma once

#include <sys/types.h>

#include <string>

namespace kiv::test {

/// An X server without a screen to look at, on a display number that is free. It ends with this object, or
/// with this process.
class XServer {
 public:
  /// Raises std::runtime_error when it cannot be started.
  XServer();
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;
  ~XServer();

  /// As DISPLAY takes it.
  const std::string& Display() const { return display_; }

 private:
  pid_t process_ = 0;
  std::string display_;
};

}  // namespace kiv::test
