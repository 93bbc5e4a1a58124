#include "core/drive_type.h"

#include <algorithm>
#include <array>

namespace kiv {

std::string DriveTypeDescription(std::int32_t type) {
  switch (type) {
    case host::drive::kUnknown: return "(unknown)";
    case host::drive::kRemovable: return "Removable Drive";
    case host::drive::kFixed: return "Fixed Drive";
    case host::drive::kRemote: return "Remote Drive";
    case host::drive::kCdRom: return "CD-ROM";
    case host::drive::kRamDisk: return "RAM Disk";
    default: return {};
  }
}

std::string DriveRoot(std::string_view path) {
  return path.empty() ? std::string() : std::string(path.substr(0, 1)) + ":\\";
}

std::int32_t ClassifyFileSystem(std::string_view fileSystem, Medium medium) {
  constexpr std::array<std::string_view, 16> kNetwork = {
      "nfs",        "nfs4",        "cifs",     "smb3",           "smbfs", "9p",   "afs",   "ceph",
      "fuse.sshfs", "fuse.rclone", "fuse.smb", "fuse.glusterfs", "ncpfs", "coda", "davfs", "lustre"};
  const auto isOneOf = [fileSystem](const auto& names) {
    return std::find(names.begin(), names.end(), fileSystem) != names.end();
  };
  if (isOneOf(kNetwork)) return host::drive::kRemote;
  if (isOneOf(std::array<std::string_view, 2>{"iso9660", "udf"})) return host::drive::kCdRom;
  if (isOneOf(std::array<std::string_view, 2>{"tmpfs", "ramfs"})) return host::drive::kRamDisk;
  return medium == Medium::Removable ? host::drive::kRemovable : host::drive::kFixed;
}

}  // namespace kiv
