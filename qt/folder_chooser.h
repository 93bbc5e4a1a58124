#pragma once

#include <QString>
#include <optional>
#include <string>

#include "host/file_names.h"

namespace kiv::qt {

/// The desktop's folder dialog over the window that asks, or else over the active one.
class FolderChooser : public host::FolderChooser {
 public:
  std::optional<std::string> ChooseFolder(const std::string& startFolder, WindowHandle owner) override;
};

/// The folder, or the nearest folder above it that exists; the user's home when there is none.
QString NearestFolder(const QString& path);

}  // namespace kiv::qt
