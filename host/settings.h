#pragma once

#include <optional>
#include <string>

#include "base/signal.h"

namespace kiv::host {

/// The user's remembered values and the host's general settings.
class Settings {
 public:
  virtual ~Settings() = default;

  /// A remembered value under a root key such as kKivStateRoot; nothing when the root or the name is missing.
  virtual std::optional<std::string> Remembered(const std::string& root, const std::string& name) const = 0;
  virtual void Remember(const std::string& root, const std::string& name, const std::string& value) = 0;

  /// A general setting such as kPhoneNumberMask; empty when it was never set.
  virtual std::string General(const std::string& name) const = 0;

  /// Raised after a general setting changed.
  Signal<> appGeneralState_StateChange;
};

}  // namespace kiv::host
