#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/sub_record.h"

namespace kiv {

/// Exact names of the study kinds.
inline constexpr std::string_view kHomStudy = "HOM Study";
inline constexpr std::string_view kPlmStudy = "PLM Study";
inline constexpr std::string_view kRfcStudy = "RF Call Trace Study";
inline constexpr std::string_view kVcsStudy = "VCSA Study";

/// What the study record has to know of a kind.
struct StudyKind {
  std::string_view name;
  std::string_view table;  ///< has one row for each study of the kind, by the study's Id
  std::function<std::shared_ptr<ISubRecord>()> createRecord;
};

/// Makes a kind known; a second registration of a name replaces the first.
void RegisterStudyKind(StudyKind kind);

/// The registered kind of exactly this name; null when there is none.
const StudyKind* FindStudyKind(std::string_view name);

}  // namespace kiv
