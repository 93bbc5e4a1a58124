#pragma once

#include <optional>
#include <string>

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

  /// Nothing when the user cancelled. `startFolder` may be empty or missing on disk.
  virtual std::optional<std::string> ChooseFolder(const std::string& startFolder) = 0;
};

}  // namespace kiv::host
