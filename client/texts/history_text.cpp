#include "client/texts/history_text.h"

#include <utility>

#include "store/store_error.h"

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

std::string HistoryStep::Summary() const {
  return damage.empty() ? store::SummaryOf(differences) : "not known";
}

std::string WhoText(const store::HistoryEntry& entry) {
  if (entry.loginRole.empty() || entry.loginRole == entry.changedBy) return entry.changedBy;
  return entry.changedBy + " (login " + entry.loginRole + ")";
}

std::vector<HistoryStep> StepsOf(const store::StudyHistory& history, std::int32_t study) {
  std::vector<HistoryStep> steps;
  std::string before;
  std::string damage;  // of what was before
  for (store::HistoryEntry& entry : history.Entries(study)) {
    HistoryStep& step = steps.emplace_back();
    step.entry = std::move(entry);
    try {
      std::string after = history.Content(study, step.entry.revision);
      if (after.empty()) continue;
      if (!before.empty()) step.differences = store::DifferencesBetween(before, after);
      step.damage = std::exchange(damage, {});
      // What a deletion took is compared with what a restoration brings back.
      before = std::move(after);
    } catch (const store::StoreError& error) {
      step.damage = damage = error.what();
      before.clear();
    }
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
