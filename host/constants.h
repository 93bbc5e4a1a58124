#pragma once

/// Names that the library and its host share. Each stands here and nowhere else.
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

/// Drag-and-drop format of nodes of the configuration entity tree.
inline constexpr const char* kConfigEntityTreeFormat = "ConfigEntityTreeClipboardFormat";

/// Stored function: the technology of the cell with this instance number; empty when it is unknown.
inline constexpr const char* kFindCellTech = "lucent_generic.find_cell_tech";

}  // namespace kiv::host
