#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kiv {

/// Drive types by the classic codes of the operating system.
enum DriveType : std::int32_t {
  kDriveUnknown = 0,
  kDriveNoRoot = 1,
  kDriveRemovable = 2,
  kDriveFixed = 3,
  kDriveRemote = 4,
  kDriveCdRom = 5,
  kDriveRamDisk = 6,
};

/// Type of the drive that holds a path, as the system tells it. An empty path asks for the current drive, a
/// missing one for the drive that would hold it.
std::int32_t DriveTypeOf(const std::string& path);

/// Name of a drive type as users know it; empty for a code without one.
std::string DriveTypeDescription(std::int32_t type);

/// What a system with drive letters is asked about: the drive of the path's first character, such as `c:\`.
/// That of a network path is `\:\`, which no system has. Empty for an empty path.
std::string DriveRoot(std::string_view path);

/// Type by the kind of file system mounted on a device, for systems without drive letters. A local file
/// system on a device that the user can take out is a removable drive.
enum class Medium { Fixed, Removable };
DriveType ClassifyFileSystem(std::string_view fileSystem, Medium medium);

}  // namespace kiv
