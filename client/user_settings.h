#pragma once

#include <QSettings>
#include <memory>
#include <optional>
#include <string>

#include "host/settings.h"

namespace kiv::client {

/// The user's settings, in the file that the platform keeps for this program.
class UserSettings : public host::Settings {
 public:
  static constexpr const char* kDefaultApplicationTitle = "KIV Studies";

  UserSettings();

  std::optional<std::string> Remembered(const std::string& root, const std::string& name) const override;
  void Remember(const std::string& root, const std::string& name, const std::string& value) override;
  std::string General(const std::string& name) const override;
  /// Stores a general setting and tells whoever listens when it changed.
  void SetGeneral(const std::string& name, const std::string& value);

  /// Title of windows and messages.
  std::string ApplicationTitle() const;
  void SetApplicationTitle(const std::string& title);

  /// Where windows keep their sizes.
  QSettings& File() { return file_; }

 private:
  QSettings file_;
};

}  // namespace kiv::client
