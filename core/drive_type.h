#pragma once

#include <string>
#include <string_view>

#include "core/kiv_study_ctls.h"

/// What the two platform sources of the drive type test share.
namespace kiv::MKivStudyCtls {

/// Name of a drive type as users know it; empty for a code without one.
std::string DriveTypeDescription(std::int32_t type);

/// Type by the kind of file system mounted on a device, for systems without drive letters. A local file
/// system on a device that the user can take out is a removable drive.
enum class Medium { Fixed, Removable };
DriveType ClassifyFileSystem(std::string_view fileSystem, Medium medium);

}  // namespace kiv::MKivStudyCtls
