#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace kiv::test {

/// An empty folder below the working folder (a hard disk, unlike many a /tmp), removed at the end.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    path_ = std::filesystem::current_path() / ("test-" + std::to_string(random()));
    std::filesystem::create_directories(path_);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string Path() const { return path_.string(); }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace kiv::test
