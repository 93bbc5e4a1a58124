#include <windows.h>

#include "core/drive_type.h"

namespace kiv {

std::int32_t DriveTypeOf(const std::string& path) {
  const std::string root = DriveRoot(path);
  return static_cast<std::int32_t>(GetDriveTypeA(root.empty() ? nullptr : root.c_str()));
}

}  // namespace kiv
