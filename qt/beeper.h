#pragma once

#include "host/beeper.h"

namespace kiv::qt {

/// The desktop's own short sound.
class Beeper : public host::Beeper {
 public:
  void Beep() override;
};

}  // namespace kiv::qt
