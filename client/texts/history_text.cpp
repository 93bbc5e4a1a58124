#include "client/texts/history_text.h"

#include <utility>

namespace kiv::client {

namespace {

using Kind = store::StudyDifference::Kind;

/// An empty value would look like a mistake of the printer.
std::string ValueText(const std::string& value) {
  return value.empty() ? "(nothing)" : value;
}

}  // namespace

std::string ChangeWord(Kind kind) {
  switch (kind) {
    case Kind::Changed: return "changed";
    case Kind::Added: return "added";
    case Kind::Removed: return "removed";
  }
  return {};
}

std::vector<HistoryStep> StepsOf(const store::StudyHistory& history, std::int32_t study) {
  std::vector<HistoryStep> steps;
  std::string before;
  for (store::HistoryEntry& entry : history.Entries(study)) {
    HistoryStep& step = steps.emplace_back();
    std::string after = history.Content(study, entry.revision);
    if (!before.empty() && !after.empty()) step.differences = store::DifferencesBetween(before, after);
    // What a deletion took is compared with what a restoration brings back.
    if (!after.empty()) before = std::move(after);
    step.entry = std::move(entry);
  }
  return steps;
}

std::string DifferenceText(const store::StudyDifference& difference) {
  switch (difference.kind) {
    case Kind::Changed: return ValueText(difference.before) + " -> " + ValueText(difference.after);
    case Kind::Added: return "added: " + difference.after;
    case Kind::Removed: return "removed: " + difference.before;
  }
  return {};
}

}  // namespace kiv::client
