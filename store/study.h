#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/study_data.h"

namespace kiv::store {

/// Whether the database has what belongs to a study's kind.
enum class KindData {
  Complete,
  Missing,  ///< no row: the record has its first values, and the next save stores it again
  Unknown   ///< of a kind that this program does not know: there is no sub-record
};

/// Tells the user what KindData::Missing means and how it is mended.
std::string MissingDataText(std::int32_t id);

/// A save of which it is not known whether it was stored.
struct UnsettledSave {
  std::string token;
  std::int32_t id = 0;
  std::int32_t revision = 0;
  bool asCopy = false;
};

/// A study with what the program stores beside the shared record.
struct Study {
  std::shared_ptr<CKivStudyData> record;
  std::string name;
  std::int32_t revision = 0;  ///< counts the saves; 0 while the study was never stored
  KindData kindData = KindData::Complete;
  std::string modifiedAt{};  ///< of the last save, in UTC; empty while the study was never stored
  std::optional<UnsettledSave> unsettled{};
};

/// The title of a kind's editor. Raises UnknownKind.
std::string EditorNameOf(const std::string& kind);

/// A new study of a kind that is not stored yet. Raises UnknownKind.
Study NewStudy(const std::string& kind);

/// A study with its scenario's name, which is the same in every database; empty when it has none.
struct NamedStudy {
  Study study;
  std::string scenario;
};

/// A number that every study has, under the name that listings and files give it.
struct SharedNumber {
  const char* name;
  std::int32_t (CKivStudyData::*get)() const;
  void (CKivStudyData::*set)(std::int32_t);
};

inline constexpr SharedNumber kSharedNumbers[] = {
    {"durationMinutes", &CKivStudyData::Duration, &CKivStudyData::SetDuration},
    {"pollingIntervalSeconds", &CKivStudyData::PollingInterval, &CKivStudyData::SetPollingInterval},
    {"retrieveDelayMinutes", &CKivStudyData::RetrieveDelay, &CKivStudyData::SetRetrieveDelay},
};

}  // namespace kiv::store
