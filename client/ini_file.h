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
  /// Changes one value in the file as others have left it by now. A file that cannot be written keeps what it
  /// has; the value then holds for this run.
  void Set(std::string_view group, std::string_view key, const std::string& value);

 private:
  std::filesystem::file_time_type ChangedAt() const;
  /// Reads the file again when somebody else has written it.
  void Refresh() const;

  std::filesystem::path path_;
  mutable std::string text_;
  mutable std::filesystem::file_time_type changedAt_{};  ///< of what was read
  mutable bool readable_ = true;
};

}  // namespace kiv::client
