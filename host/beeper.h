#pragma once

namespace kiv::host {

/// The short sound of a swallowed key.
class Beeper {
 public:
  virtual ~Beeper() = default;
  virtual void Beep() = 0;
};

}  // namespace kiv::host
