#pragma once

#include <QSettings>

#include "client/user_settings.h"

namespace kiv::client {

/// Where windows keep their sizes: beside the user's settings.
inline QSettings WindowSettings(const UserSettings& settings) {
  return {QString::fromStdString(settings.FilePath().string()), QSettings::IniFormat};
}

}  // namespace kiv::client
