#include <windows.h>

#include "core/drive_type.h"

namespace kiv::MKivStudyCtls {

std::int32_t GetDriveTypeName(const std::string& path, std::string& description) {
  const std::string root = path.empty() ? std::string() : path.substr(0, 1) + ":\\";
  const auto type = static_cast<std::int32_t>(GetDriveTypeA(root.empty() ? nullptr : root.c_str()));
  description = DriveTypeDescription(type);
  return type;
}

}  // namespace kiv::MKivStudyCtls
