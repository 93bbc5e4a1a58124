#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "database/connection.h"
#include "store/change.h"
#include "store/study.h"

namespace kiv::store {

/// What happened to a study at one revision.
enum class StudyEvent {
  Known,  ///< saved before its history was kept, and found so at the first save since
  Created,
  Changed,
  Deleted,
  Restored
};

/// As users read it, such as `changed`.
std::string_view EventName(StudyEvent event);

/// One entry of the history of a study.
struct HistoryEntry {
  std::int32_t study = 0;
  std::int32_t revision = 0;
  StudyEvent event = StudyEvent::Changed;
  std::string changedBy;
  std::string changedAt;  ///< UTC, such as 2026-03-09T13:05:00Z
  std::string kind;
  std::string name;
  std::string loginRole{};  ///< that the server had logged in; empty when it was not recorded
};

/// The history of the studies of a database: one entry for each save and each deletion, with the content
/// after it as JSON. What was before is the entry before.
class StudyHistory {
 public:
  StudyHistory(database::Connection& connection, const Changes& changes)
      : connection_(connection), changes_(changes) {}

  /// Whether the database has a place for it. One that keeps an older layout has none.
  bool IsKept() const;

  /// The entries of a study, oldest first. Raises StoreError when there are none.
  std::vector<HistoryEntry> Entries(std::int32_t study) const;
  /// The last entry of each study that is deleted now, by ascending number.
  std::vector<HistoryEntry> DeletedStudies() const;
  /// The content after a revision, which is JSON of a size and depth that studies have; empty after a
  /// deletion. Raises StoreError when there is no such revision, or when it is damaged.
  std::string Content(std::int32_t study, std::int32_t revision) const;
  bool Has(std::int32_t study, std::int32_t revision) const;

  /// Adds an entry within the transaction of a change. Who is logged in is recorded by the server itself.
  void Add(const HistoryEntry& entry, const std::string& content, const Change& change);

 private:
  void RequireKept() const;
  std::vector<HistoryEntry> Read(const std::string& condition) const;

  database::Connection& connection_;
  const Changes& changes_;
  mutable std::optional<bool> kept_;
};

}  // namespace kiv::store
