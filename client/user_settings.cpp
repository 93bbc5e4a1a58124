#include "client/user_settings.h"

#include "client/user_folders.h"
#include "host/services.h"

namespace kiv::client {

namespace {

constexpr const char* kGeneralGroup = "General Settings";
constexpr const char* kApplicationTitle = "Application Title";

}  // namespace

UserSettings::UserSettings() : file_(UserConfigFolder() / "kivstudy" / "kivstudy.ini") {}

std::optional<std::string> UserSettings::Remembered(const std::string& root, const std::string& name) const {
  return file_.Value(root, name);
}

void UserSettings::Remember(const std::string& root, const std::string& name, const std::string& value) {
  if (Remembered(root, name) != value) file_.Set(root, name, value);
}

std::string UserSettings::General(const std::string& name) const {
  return file_.Value(kGeneralGroup, name).value_or("");
}

void UserSettings::SetGeneral(const std::string& name, const std::string& value) {
  if (General(name) == value) return;
  file_.Set(kGeneralGroup, name, value);
  host::TheEvents().appGeneralState_StateChange.Raise();
}

std::string UserSettings::ApplicationTitle() const {
  const std::string title = General(kApplicationTitle);
  return title.empty() ? kDefaultApplicationTitle : title;
}

void UserSettings::SetApplicationTitle(const std::string& title) {
  SetGeneral(kApplicationTitle, title);
}

}  // namespace kiv::client
