#pragma once

#include <optional>
#include <string>

namespace kiv::host {

/// The user's remembered values and the host's general settings. A host that changes one of the latter raises
/// the event appGeneralState_StateChange.
class Settings {
 public:
  virtual ~Settings() = default;

  /// A remembered value under a root key such as kKivStateRoot; nothing when the root or the name is missing.
  virtual std::optional<std::string> Remembered(const std::string& root, const std::string& name) const = 0;
  virtual void Remember(const std::string& root, const std::string& name, const std::string& value) = 0;

  /// A general setting such as kPhoneNumberMask; empty when it was never set.
  virtual std::string General(const std::string& name) const = 0;
};

}  // namespace kiv::host
