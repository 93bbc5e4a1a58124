#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kiv::client {

/// A file of settings in groups, in the format that QSettings reads and writes as well. Values are texts in
/// UTF-8. Lines that this class does not understand stay as they are.
class IniFile {
 public:
  explicit IniFile(std::filesystem::path path) : path_(std::move(path)) {}

  const std::filesystem::path& Path() const { return path_; }
  std::optional<std::string> Value(std::string_view group, std::string_view key) const;
  /// Changes one value in the file as others have left it by now. Raises StoreError with the system's reason
  /// for a file that cannot be read or written: it keeps what it has, and the value holds for this run.
  void Set(std::string_view group, std::string_view key, const std::string& value);

 private:
  std::filesystem::file_time_type ChangedAt() const;
  void Write() const;
  /// Reads the file again when somebody else has written it.
  void Refresh() const;

  std::filesystem::path path_;
  mutable std::string text_;
  mutable std::filesystem::file_time_type changedAt_{};  ///< of what was read
  mutable std::string unreadable_;                       ///< why; empty when it is readable
};

}  // namespace kiv::client
