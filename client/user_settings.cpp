#include "client/user_settings.h"

#include "client/user_folders.h"
#include "host/services.h"
#include "store/store_error.h"

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
  if (Remembered(root, name) != value) Store(root, name, value);
}

std::string UserSettings::General(const std::string& name) const {
  return file_.Value(kGeneralGroup, name).value_or("");
}

void UserSettings::SetGeneral(const std::string& name, const std::string& value) {
  if (General(name) == value) return;
  Store(kGeneralGroup, name, value);
  host::TheEvents().appGeneralState_StateChange.Raise();
}

std::string UserSettings::ApplicationTitle() const {
  const std::string title = General(kApplicationTitle);
  return title.empty() ? kDefaultApplicationTitle : title;
}

void UserSettings::SetApplicationTitle(const std::string& title) {
  SetGeneral(kApplicationTitle, title);
}

void UserSettings::Store(const std::string& group, const std::string& name, const std::string& value) {
  try {
    file_.Set(group, name, value);
  } catch (const store::StoreError& failure) {
    // While one failure is told, or after it, the next ones say nothing new.
    if (const Teller tell = std::exchange(teller_, nullptr)) {
      tell(store::StoreError(
          "The settings file \"" + FilePath().string() + "\" was not written: " + failure.what() +
          ". Settings hold until the program ends. Ask for permission to write the file, or "
          "make room for it."));
    }
  }
}

}  // namespace kiv::client
