#pragma once

#include <optional>
#include <string>

#include "base/window_handle.h"

namespace kiv::host {

/// Which file names the system that runs the studies can hold.
class FileNameRules {
 public:
  virtual ~FileNameRules() = default;

  virtual bool HasOnlyPermittedCharacters(const std::string& name) const = 0;
  /// The characters that no file name may hold, as a message lists them.
  virtual std::string ForbiddenCharacters() const = 0;
};

/// Lets the user pick a folder.
class FolderChooser {
 public:
  virtual ~FolderChooser() = default;

  /// Nothing when the user cancelled. `startFolder` may be empty or missing on disk. `owner` is the window
  /// that the chooser stays in front of; kNoWindow when who asks has none.
  virtual std::optional<std::string> ChooseFolder(const std::string& startFolder, WindowHandle owner) = 0;
};

}  // namespace kiv::host
