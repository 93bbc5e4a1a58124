#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/constants.h"

namespace kiv {

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
std::int32_t ClassifyFileSystem(std::string_view fileSystem, Medium medium);

}  // namespace kiv
