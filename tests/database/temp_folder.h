#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace kiv::database {

/// A folder of its own for one test, open to every user, removed with what is in it.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "kiv-test-XXXXXX";
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
    path_ = pattern;
    std::filesystem::permissions(path_, std::filesystem::perms::all);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

}  // namespace kiv::database
