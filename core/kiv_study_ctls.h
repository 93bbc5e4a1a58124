#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/keyed_collection.h"

/// Small functions that tabs and records share. Those that know controls are in editor/kiv_study_ctls.h.
namespace kiv::MKivStudyCtls {

/// "Y" for exactly 1 (checked), "N" for any other check box value.
std::string CheckValueToYN(std::int16_t value);

/// 1 for exactly "Y", otherwise 0.
std::int32_t YNToCheckValue(std::string_view text);

std::string BoolToYN(bool value);

/// DriveTypeOf a path, with its name.
std::int32_t GetDriveTypeName(const std::string& path, std::string& description);

/// Whether every character's low byte is an ASCII letter or digit; true for the empty text.
bool IsAlphaNumeric(std::string_view text);
/// The same of characters as they are counted, of which half a pair is one.
bool IsAlphaNumeric(std::u16string_view characters);

/// False only when a set collection lacks the key; an unset collection counts as holding it.
template <class T>
bool ExistsInCollection(const std::shared_ptr<KeyedCollection<T>>& collection, std::string_view key) {
  return !collection || collection->Contains(key);
}

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
