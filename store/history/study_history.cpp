#include "store/history/study_history.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/ascii.h"
#include "core/conversions.h"
#include "core/fields.h"
#include "store/exchange/json_text.h"
#include "store/history/packed_text.h"
#include "store/query.h"
#include "store/store_error.h"

namespace kiv::store {

namespace {

constexpr std::string_view kTable = "kiv_study_history";

/// The names by StudyEvent, as they are stored and shown.
constexpr std::array<std::string_view, 5> kEventNames = {"known", "created", "changed", "deleted",
                                                         "restored"};

StudyEvent EventOf(const std::string& name) {
  const auto found = std::ranges::find(kEventNames, name);
  return found == kEventNames.end() ? StudyEvent::Changed
                                    : static_cast<StudyEvent>(found - kEventNames.begin());
}

std::string Where(std::int32_t study, std::int32_t revision) {
  return " WHERE study_id = " + std::to_string(study) + " AND revision = " + std::to_string(revision);
}

}  // namespace

std::string_view EventName(StudyEvent event) {
  return kEventNames[static_cast<std::size_t>(event)];
}

bool StudyHistory::IsKept() const {
  if (!kept_) kept_ = connection_.ColumnExists(AsciiUpper(kTable), "CONTENT");
  return *kept_;
}

void StudyHistory::RequireKept() const {
  if (!IsKept()) {
    throw StoreError(
        "This study database keeps its older layout, which has no history. Ask for permission to "
        "write it, then run init.");
  }
}

std::vector<HistoryEntry> StudyHistory::Read(const std::string& condition) const {
  RequireKept();
  const std::string loginRole = changes_.AreKept() ? "login_role" : "NULL";
  const auto rows = Query(
      connection_, "SELECT study_id, revision, event, changed_by, changed_at, kind, name, " + loginRole +
                       " FROM kiv_study_history " + condition + " ORDER BY study_id, revision");
  std::vector<HistoryEntry> entries;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    int column = 0;
    const auto next = [&] { return rows->FieldAt(column++); };
    HistoryEntry& entry = entries.emplace_back();
    entry.study = ToInt32(next());
    entry.revision = ToInt32(next());
    entry.event = EventOf(ToText(next()));
    entry.changedBy = ToText(next());
    entry.changedAt = ToText(next());
    entry.kind = ToText(next());
    entry.name = ToText(next());
    entry.loginRole = ToText(next());
  }
  return entries;
}

std::vector<HistoryEntry> StudyHistory::Entries(std::int32_t study) const {
  std::vector<HistoryEntry> entries = Read("WHERE study_id = " + std::to_string(study));
  if (entries.empty()) {
    throw StoreError("There is no history of a study " + std::to_string(study) +
                     ". It begins with the first save or deletion by a version that keeps it.");
  }
  return entries;
}

std::vector<HistoryEntry> StudyHistory::DeletedStudies() const {
  return Read(
      "h WHERE event = 'deleted' AND NOT EXISTS (SELECT 1 FROM kiv_study s WHERE s.id = h.study_id) AND NOT "
      "EXISTS (SELECT 1 FROM kiv_study_history l WHERE l.study_id = h.study_id AND l.event = 'deleted' AND "
      "l.revision > h.revision)");
}

bool StudyHistory::Has(std::int32_t study, std::int32_t revision) const {
  return !Query(connection_, "SELECT 1 FROM kiv_study_history" + Where(study, revision))->EndOfFile();
}

std::string StudyHistory::Content(std::int32_t study, std::int32_t revision) const {
  RequireKept();
  // One character more tells what is too long from what is just not.
  const auto row = Query(connection_, "SELECT substr(content, 1, " + std::to_string(kLongestContent + 1) +
                                          ") FROM kiv_study_history" + Where(study, revision));
  if (row->EndOfFile()) {
    (void)Entries(study);  // says when there is no history at all
    throw StoreError("The history of study " + std::to_string(study) + " has no revision " +
                     std::to_string(revision) + ". Choose one that it lists.");
  }
  try {
    std::string content = Unpacked(ToText(row->FieldAt(0)));
    if (!content.empty()) CheckWrittenJson(content);
    return content;
  } catch (const StoreError& damage) {
    throw StoreError("What the history keeps of study " + std::to_string(study) + " at revision " +
                     std::to_string(revision) + " is damaged: " + damage.what() +
                     ". Choose another revision.");
  }
}

void StudyHistory::Add(const HistoryEntry& entry, const std::string& content, const Change& change) {
  std::vector<host::Assignment> values = {
      {"study_id", entry.study},
      {"revision", entry.revision},
      {"event", EventName(entry.event)},
      {"changed_by", entry.changedBy},
      {"changed_at", entry.changedAt},
      {"kind", entry.kind},
      {"name", entry.name},
      {"content", content.empty() ? Variant() : Variant(Packed(content))},
  };
  if (!change.Token().empty()) values.push_back({"change_token", change.Token()});
  connection_.ExecuteSql(sql::InsertStatement(connection_, kTable, values));
}

}  // namespace kiv::store
