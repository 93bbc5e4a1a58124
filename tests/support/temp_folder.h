#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace kiv::test {

/// An empty folder below the working folder (a hard disk, unlike many a /tmp), removed at the end.
class TempFolder {
 public:
  TempFolder() : TempFolder(std::filesystem::current_path()) {}
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string Path() const { return path_.string(); }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 protected:
  explicit TempFolder(const std::filesystem::path& parent)
      : path_(parent / ("kiv-test-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(path_);
  }

 private:
  std::filesystem::path path_;
};

/// One that every user may enter and write.
struct OpenFolder : TempFolder {
  OpenFolder() : TempFolder(std::filesystem::temp_directory_path()) {
    std::filesystem::permissions(Path(), std::filesystem::perms::all);
  }
};

}  // namespace kiv::test
