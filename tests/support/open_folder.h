#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace kiv::test {

/// A folder of its own for one test, which every user may enter and write, removed with what is in it.
class OpenFolder {
 public:
  OpenFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "kiv-test-XXXXXX";
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
    path_ = pattern;
    std::filesystem::permissions(path_, std::filesystem::perms::all);
  }
  OpenFolder(const OpenFolder&) = delete;
  OpenFolder& operator=(const OpenFolder&) = delete;
  ~OpenFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

}  // namespace kiv::test
