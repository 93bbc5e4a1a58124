#pragma once

#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "client/ini_file.h"
#include "host/settings.h"

namespace kiv::client {

/// The user's settings, in a file of this program.
class UserSettings : public host::Settings {
 public:
  static constexpr const char* kDefaultApplicationTitle = "KIV Studies";

  using Teller = std::function<void(const std::exception&)>;

  UserSettings();

  /// Takes whoever tells the user, once, that the settings cannot be kept.
  void SetTeller(Teller teller) { teller_ = std::move(teller); }

  std::optional<std::string> Remembered(const std::string& root, const std::string& name) const override;
  void Remember(const std::string& root, const std::string& name, const std::string& value) override;
  std::string General(const std::string& name) const override;
  /// Stores a general setting and tells whoever listens when it changed.
  void SetGeneral(const std::string& name, const std::string& value);

  /// Title of windows and messages.
  std::string ApplicationTitle() const;
  void SetApplicationTitle(const std::string& title);

  const std::filesystem::path& FilePath() const { return file_.Path(); }

 private:
  void Store(const std::string& group, const std::string& name, const std::string& value);

  IniFile file_;
  Teller teller_;
};

}  // namespace kiv::client
