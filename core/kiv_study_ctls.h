#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/keyed_collection.h"
#include "ui/combo_box.h"

/// Small functions that tabs and records share.
namespace kiv::MKivStudyCtls {

/// "Y" for exactly 1 (checked), "N" for any other check box value.
std::string CheckValueToYN(std::int16_t value);

/// 1 for exactly "Y", otherwise 0.
std::int32_t YNToCheckValue(std::string_view text);

std::string BoolToYN(bool value);

/// Index of the first entry whose item data equals the value; -1 when there is none.
std::int32_t FindItemDataIndex(const ui::ItemList& list, std::int32_t data);

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

/// Type of the drive that holds a path, with its name. An empty path asks for the current drive, a missing
/// one for the drive that would hold it.
std::int32_t GetDriveTypeName(const std::string& path, std::string& description);

/// Whether every character's low byte is an ASCII letter or digit; true for the empty text.
bool IsAlphaNumeric(std::string_view text);

/// False only when a set collection lacks the key; an unset collection counts as holding it.
template <class T>
bool ExistsInCollection(const std::shared_ptr<KeyedCollection<T>>& collection, std::string_view key) {
  return !collection || collection->Contains(key);
}

/// Key filter of numeric boxes: lets Backspace and digits pass, swallows any other key with a beep.
void NumericKeyFilter(std::int16_t& keyCode);

enum class CharSearch : bool { NotInSet = false, InSet = true };
enum class Comparison { Exact, CaseBlind };

/// First position (from 1) at or after `start` whose character is, or is not, in the set; 0 when there is
/// none.
std::int32_t FindCharInSet(std::int32_t start, std::string_view text, std::string_view set, CharSearch mode,
                           Comparison comparison);

/// Length of the file name that a data file name pattern produces, by the rules of the system that runs the
/// study: "$HH12" counts four characters, "$ID" seven whatever follows it in the same segment.
std::int32_t PatternNameLength(std::string_view pattern);

}  // namespace kiv::MKivStudyCtls
