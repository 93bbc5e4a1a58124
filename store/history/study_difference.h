#pragma once

#include <string>
#include <vector>

namespace kiv::store {

/// One difference between two states of a study.
struct StudyDifference {
  enum class Kind { Changed, Added, Removed };

  Kind kind = Kind::Changed;
  std::string field;   ///< of the study, such as `Cells`
  std::string place;   ///< all of it, such as `Cells 1-2-37: Antennas 3: Selected`
  std::string before;  ///< empty for what was added
  std::string after;   ///< empty for what was removed
};

/// Compares two contents of the history, field by field; the order of entries in a list does not matter. All
/// of a study is new when there was none before, and the other way round. The contents are such as
/// StudyHistory::Content gives.
std::vector<StudyDifference> DifferencesBetween(const std::string& before, const std::string& after);

/// The changed fields in short, such as `name, Cells (3)`.
std::string SummaryOf(const std::vector<StudyDifference>& differences);

}  // namespace kiv::store
