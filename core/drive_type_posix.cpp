#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/drive_type.h"

namespace kiv {

namespace {

namespace fs = std::filesystem;

struct Mount {
  std::string device;  // "major:minor"
  std::string point;
  std::string fileSystem;
};

/// The mount table writes blanks and backslashes as three octal digits.
std::string Unescaped(const std::string& field) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] == '\\' && i + 3 < field.size()) {
      text += static_cast<char>(std::stoi(field.substr(i + 1, 3), nullptr, 8));
      i += 3;
    } else {
      text += field[i];
    }
  }
  return text;
}

/// A line reads: id parent major:minor root mount-point options [tags] - file-system source options
Mount ParseMount(const std::string& line) {
  Mount mount;
  std::istringstream fields(line);
  std::string skipped;
  fields >> skipped >> skipped >> mount.device >> skipped >> mount.point;
  while (fields >> skipped && skipped != "-") {
  }
  fields >> mount.fileSystem;
  mount.point = Unescaped(mount.point);
  return mount;
}

fs::path NearestExisting(const std::string& path) {
  std::error_code error;
  fs::path existing = path.empty() ? fs::current_path(error) : fs::absolute(path, error);
  while (!fs::exists(existing, error) && existing.has_relative_path()) existing = existing.parent_path();
  const fs::path real = fs::canonical(existing, error);
  return error ? existing : real;
}

bool Holds(const std::string& mountPoint, const std::string& path) {
  if (mountPoint == "/" || path == mountPoint) return true;
  return path.starts_with(mountPoint) && path[mountPoint.size()] == '/';
}

/// A partition's own folder has no such file; its disk, one folder up, has.
Medium MediumOf(const std::string& device) {
  const std::string block = "/sys/dev/block/" + device;
  for (const char* file : {"/removable", "/../removable"}) {
    char flag = '0';
    if (std::ifstream(block + file) >> flag) return flag == '1' ? Medium::Removable : Medium::Fixed;
  }
  return Medium::Fixed;
}

}  // namespace

std::int32_t DriveTypeOf(const std::string& path) {
  const std::string existing = NearestExisting(path).string();
  std::ifstream table("/proc/self/mountinfo");
  Mount holder;
  for (std::string line; std::getline(table, line);) {
    Mount mount = ParseMount(line);
    // The longest point wins; of two on the same point the later one covers the earlier.
    if (Holds(mount.point, existing) && mount.point.size() >= holder.point.size()) holder = std::move(mount);
  }
  return ClassifyFileSystem(holder.fileSystem, MediumOf(holder.device));
}

}  // namespace kiv
