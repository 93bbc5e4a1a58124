#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/history/study_difference.h"
#include "store/history/study_history.h"

/// The history of studies in words.
namespace kiv::client {

/// One entry, and what it changed.
struct HistoryStep {
  store::HistoryEntry entry;
  std::vector<store::StudyDifference> differences;
  /// Why it cannot be said what the entry changed: its content, or that of the one before, is damaged.
  std::string damage;

  /// The changed fields in short.
  std::string Summary() const;
};

/// The history of a study with what each entry changed, oldest first. The first entry that is kept changed
/// nothing that is known.
std::vector<HistoryStep> StepsOf(const store::StudyHistory& history, std::int32_t study);

/// Who made a change: the user, and the login that the server recorded where that has another name.
std::string WhoText(const store::HistoryEntry& entry);

/// `changed`, `added` or `removed`
std::string ChangeWord(store::StudyDifference::Kind kind);

/// What a difference says: `45 -> 60`, `added: ...`, `removed: ...`
std::string DifferenceText(const store::StudyDifference& difference);

}  // namespace kiv::client
