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
  constexpr std::string_view kSeparators = "\\/";
  if (path.empty()) return {};
  const bool isNetworkPath = path.size() > 1 && kSeparators.find(path[0]) != std::string_view::npos &&
                             kSeparators.find(path[1]) != std::string_view::npos;
  if (!isNetworkPath) return std::string(path.substr(0, 1)) + ":\\";
  std::string root = "\\\\";
  path.remove_prefix(2);
  for (int part = 0; part < 2 && !path.empty(); ++part) {  // the server and its share
    const std::size_t end = std::min(path.find_first_of(kSeparators), path.size());
    root.append(path.substr(0, end)).append("\\");
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return root;
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
