#include "base/drive_type.h"

#include <algorithm>
#include <array>

namespace kiv {

std::string DriveTypeDescription(std::int32_t type) {
  switch (type) {
    case kDriveUnknown: return "(unknown)";
    case kDriveRemovable: return "Removable Drive";
    case kDriveFixed: return "Fixed Drive";
    case kDriveRemote: return "Remote Drive";
    case kDriveCdRom: return "CD-ROM";
    case kDriveRamDisk: return "RAM Disk";
    default: return {};
  }
}

std::string DriveRoot(std::string_view path) {
  return path.empty() ? std::string() : std::string(path.substr(0, 1)) + ":\\";
}

DriveType ClassifyFileSystem(std::string_view fileSystem, Medium medium) {
  constexpr std::array<std::string_view, 16> kNetwork = {
      "nfs",        "nfs4",        "cifs",     "smb3",           "smbfs", "9p",   "afs",   "ceph",
      "fuse.sshfs", "fuse.rclone", "fuse.smb", "fuse.glusterfs", "ncpfs", "coda", "davfs", "lustre"};
  const auto isOneOf = [fileSystem](const auto& names) {
    return std::find(names.begin(), names.end(), fileSystem) != names.end();
  };
  if (isOneOf(kNetwork)) return kDriveRemote;
  if (isOneOf(std::array<std::string_view, 2>{"iso9660", "udf"})) return kDriveCdRom;
  if (isOneOf(std::array<std::string_view, 2>{"tmpfs", "ramfs"})) return kDriveRamDisk;
  return medium == Medium::Removable ? kDriveRemovable : kDriveFixed;
}

}  // namespace kiv
