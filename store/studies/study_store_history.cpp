// What the store writes into the history of its studies, and brings back from it.

#include <utility>

#include "core/conversions.h"
#include "store/exchange/json.h"
#include "store/exchange/study_json.h"
#include "store/query.h"
#include "store/studies/study_store.h"
#include "store/times.h"

namespace kiv::store {

/// The revision of a study that nobody else changes until the transaction ends; nothing when there is none.
std::optional<std::int32_t> StudyStore::LockStudy(std::int32_t id) {
  const auto row =
      Query(*connection_, "UPDATE kiv_study SET revision = revision WHERE id = " + std::to_string(id) +
                              " RETURNING revision");
  if (row->EndOfFile()) return std::nullopt;
  return ToInt32(row->FieldAt(0));
}

/// A study may have been saved before its history was kept, or by a program that does not keep it.
void StudyStore::KeepKnownState(std::int32_t id, std::int32_t revision, const Change& change) {
  if (!history_.IsKept() || history_.Has(id, revision)) return;
  const auto row =
      Query(*connection_, "SELECT kind, name, modified_by, modified_at FROM kiv_study WHERE id = " +
                              std::to_string(id) + " AND revision = " + std::to_string(revision));
  if (row->EndOfFile()) return;
  std::string content;
  try {
    const Study study = Read(id);
    const bool complete = study.kindData == KindData::Complete;
    content = ContentText(study, scenarios_.NameOf(study.record->ScenarioID()),
                          complete ? study.record->SubRecord()->StoredLists() : std::vector<StoredList>());
  } catch (const StoreError&) {
    // What cannot be read cannot be kept; that must not keep anybody from mending or deleting the study.
  }
  history_.Add({id, revision, StudyEvent::Known, ToText(row->FieldAt(2)), ToText(row->FieldAt(3)),
                ToText(row->FieldAt(0)), ToText(row->FieldAt(1))},
               content, change);
}

void StudyStore::AddToHistory(const Study& study, const std::string& scenario, std::int32_t revision,
                              const SaveNote& note) {
  if (!history_.IsKept()) return;
  const CKivStudyData& record = *study.record;
  Study written = study;
  written.kindData = KindData::Complete;
  history_.Add({record.ID(), revision, note.event, note.user, note.time, record.AppName(), study.name},
               ContentText(written, scenario, record.SubRecord()->WrittenLists()), note.change);
}

void StudyStore::Remove(std::int32_t id, const std::string& user) {
  const std::string now = UtcNow();
  Change change(changes_, {EventName(StudyEvent::Deleted), user, now, 1});
  const auto revision = LockStudy(id);
  if (!revision) return;
  KeepKnownState(id, *revision, change);
  const auto row =
      Query(*connection_, "DELETE FROM kiv_study WHERE id = " + std::to_string(id) + " RETURNING kind, name");
  if (history_.IsKept()) {
    history_.Add(
        {id, *revision + 1, StudyEvent::Deleted, user, now, ToText(row->FieldAt(0)), ToText(row->FieldAt(1))},
        {}, change);
  }
  change.Commit();
}

std::int32_t StudyStore::Restore(std::int32_t id, std::int32_t revision, const std::string& user) {
  const std::string content = history_.Content(id, revision);
  if (content.empty()) {
    throw StoreError("Nothing is kept of revision " + std::to_string(revision) + " of study " +
                     std::to_string(id) + ". Choose the revision before it, or another one.");
  }
  NamedStudy named = ReadKept(content);
  CKivStudyData& record = *named.study.record;
  const std::string now = UtcNow();
  Change change(changes_, {EventName(StudyEvent::Restored), user, now, 1});
  const auto present = LockStudy(id);
  if (present == revision) {
    throw StoreError("Study " + std::to_string(id) + " is at revision " + std::to_string(revision) +
                     " now. Choose an earlier one to go back to.");
  }
  if (present) {
    // Its rows are written anew, because an update leaves some columns as they are.
    KeepKnownState(id, *present, change);
    connection_->ExecuteSql("DELETE FROM kiv_study WHERE id = " + std::to_string(id));
  }
  named.study.revision = present ? *present : history_.Entries(id).back().revision;
  record.SetID(id);
  if (!named.scenario.empty()) record.SetScenarioID(scenarios_.FindOrAdd(named.scenario));
  const std::int32_t restored =
      Write(named.study, {StudyEvent::Restored, user, now, change}, Identifier::OfRecord);
  change.Commit();
  return restored;
}

}  // namespace kiv::store
