#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Names and numbers that the library and its host share. Each stands here and nowhere else.
namespace kiv::host {

/// Root of a user's remembered values.
inline constexpr const char* kKivStateRoot = "KivStateRoot";

namespace remembered {
inline constexpr const char* kDatafilePath = "DatafilePath";
inline constexpr const char* kHomFilename = "HomFilename";
inline constexpr const char* kHomDuration = "HomDuration";
inline constexpr const char* kCurStdPath = "CurStdPath";
inline constexpr const char* kCurStdDatafile = "CurStdDatafile";
inline constexpr const char* kStartOnFail = "StartOnFail";
inline constexpr const char* kPlmFilename = "PlmFilename";
inline constexpr const char* kPlmDuration = "PlmDuration";
inline constexpr const char* kPlmTag = "PlmTag";
inline constexpr const char* kPlmRetrieveDelay = "PlmRetrieveDelay";
inline constexpr const char* kRfcDuration = "RfcDuration";
inline constexpr const char* kRfcTag = "RfcTag";
inline constexpr const char* kVcsFilename = "VcsFilename";
inline constexpr const char* kVcsDuration = "VcsDuration";
inline constexpr const char* kVcsRetrieveDelay = "VcsRetrieveDelay";
}  // namespace remembered

/// General setting: the pattern of a directory number, `#` for a digit.
inline constexpr const char* kPhoneNumberMask = "Phone Number Mask";

/// What documents a study editor edits: the exact names of the study kinds.
namespace category {
inline constexpr std::string_view kHomStudy = "HOM Study";
inline constexpr std::string_view kPlmStudy = "PLM Study";
inline constexpr std::string_view kRfcStudy = "RF Call Trace Study";
inline constexpr std::string_view kVcsStudy = "VCSA Study";
}  // namespace category

/// Features of a switch, by the columns that tell whether they are active.
namespace feature {
inline constexpr std::string_view kF121 = "F121";
inline constexpr std::string_view kF161 = "F161";  ///< RF call trace (RFCT)
inline constexpr std::string_view kF276 = "F276";
inline constexpr std::string_view kF297 = "F297";
inline constexpr std::string_view kF368 = "F368";
inline constexpr std::string_view kF430 = "F430";
inline constexpr std::string_view kF465 = "F465";  ///< more than one DN in a study
inline constexpr std::string_view kF545 = "F545";
inline constexpr std::string_view kF559 = "F559";
}  // namespace feature

/// Entries of the menu of a list into which entities are dropped.
namespace menu {
inline constexpr std::size_t kRemove = 0;
inline constexpr std::size_t kRemoveAll = 1;
inline constexpr std::size_t kSelectAll = 2;
}  // namespace menu

/// Pictures by which a list shows how it is sorted: an arrow up and an arrow down.
namespace image {
inline constexpr std::int32_t kSortAscending = 101;
inline constexpr std::int32_t kSortDescending = 102;
}  // namespace image

/// Types of drives by the codes of the operating system.
namespace drive {
inline constexpr std::int32_t kUnknown = 0;
inline constexpr std::int32_t kNoRoot = 1;
inline constexpr std::int32_t kRemovable = 2;
inline constexpr std::int32_t kFixed = 3;
inline constexpr std::int32_t kRemote = 4;
inline constexpr std::int32_t kCdRom = 5;
inline constexpr std::int32_t kRamDisk = 6;
}  // namespace drive

/// Drag-and-drop format of nodes of the configuration entity tree.
inline constexpr const char* kConfigEntityTreeFormat = "ConfigEntityTreeClipboardFormat";

/// Stored function: the technology of the cell with this instance number; empty when it is unknown.
inline constexpr const char* kFindCellTech = "lucent_generic.find_cell_tech";

}  // namespace kiv::host
