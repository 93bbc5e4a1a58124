#include "client/user_settings.h"

#include <QString>

#include "host/services.h"

namespace kiv::client {

namespace {

constexpr const char* kApplicationTitle = "Application Title";

QString GeneralKey(const std::string& name) {
  return QString::fromStdString("General Settings/" + name);
}

QString RememberedKey(const std::string& root, const std::string& name) {
  return QString::fromStdString(root + "/" + name);
}

}  // namespace

UserSettings::UserSettings()
    : file_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("kivstudy"),
            QStringLiteral("kivstudy")) {}

std::optional<std::string> UserSettings::Remembered(const std::string& root, const std::string& name) const {
  const QVariant value = file_.value(RememberedKey(root, name));
  if (!value.isValid()) return std::nullopt;
  return value.toString().toStdString();
}

void UserSettings::Remember(const std::string& root, const std::string& name, const std::string& value) {
  file_.setValue(RememberedKey(root, name), QString::fromStdString(value));
}

std::string UserSettings::General(const std::string& name) const {
  return file_.value(GeneralKey(name)).toString().toStdString();
}

void UserSettings::SetGeneral(const std::string& name, const std::string& value) {
  if (General(name) == value) return;
  file_.setValue(GeneralKey(name), QString::fromStdString(value));
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
