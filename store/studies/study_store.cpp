#include "store/studies/study_store.h"

#include <charconv>
#include <utility>

#include "core/conversions.h"
#include "core/fields.h"
#include "core/study_kinds.h"
#include "database/statement_error.h"
#include "database/transaction.h"
#include "host/scope.h"
#include "store/query.h"
#include "store/times.h"

namespace kiv::store {

namespace {

constexpr std::string_view kStudyTable = "kiv_study";
constexpr const char* kInOrder = "ORDER BY s.id";

/// A scenario that was never chosen has no row to point at.
Variant ScenarioReference(std::int32_t id) {
  return id == CKivStudyData::kNotGiven ? Variant() : Variant(id);
}

/// One value that is no number must not keep the whole list from being shown.
std::int32_t ReadableNumber(std::string_view text) {
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  if (text.empty()) return CKivStudyData::kNotGiven;
  if (const auto read = std::from_chars(text.data(), end, number);
      read.ptr == end && read.ec == std::errc()) {
    return number;
  }
  try {
    return ToInt32(Variant(text));
  } catch (const Error&) {
    return CKivStudyData::kNotGiven;
  }
}

/// Visits the lines of the list that a condition and an order leave.
void VisitSummaries(database::Connection& connection, const std::string& which, const SummaryVisitor& visit) {
  const auto take = [&visit](std::span<const std::string_view> row) {
    auto next = row.begin();
    const auto text = [&next] { return *next++; };
    visit({.id = ReadableNumber(text()),
           .kind = text(),
           .name = text(),
           .scenario = text(),
           .duration = ReadableNumber(text()),
           .modifiedBy = text(),
           .modifiedAt = text()});
  };
  connection.VisitRows(
      "SELECT s.id, s.kind, s.name, c.name AS scenario, s.duration, s.modified_by, s.modified_at "
      "FROM kiv_study s LEFT JOIN kiv_scenario c ON c.id = s.scenario_id " +
          which,
      host::kQueryTimeoutSeconds, take);
}

std::vector<StudySummary> Summaries(database::Connection& connection, const std::string& which) {
  std::vector<StudySummary> studies;
  VisitSummaries(connection, which, [&studies](const StudyLine& line) {
    studies.push_back({line.id, std::string(line.kind), std::string(line.name), std::string(line.scenario),
                       line.duration, std::string(line.modifiedBy), std::string(line.modifiedAt)});
  });
  return studies;
}

std::string NotOpened(std::int32_t id, const std::string& name) {
  return "Study " + std::to_string(id) + " \"" + name + "\" was not opened: ";
}

constexpr const char* kCorrectTheValue =
    " Correct the value in the database, or restore the study from a copy of the database.";

/// A whole number of a study's row.
std::int32_t StudyNumber(const host::Recordset& row, std::string_view column) {
  const Variant value = row.Field(column);
  try {
    return ToInt32Or(value, CKivStudyData::kNotGiven);
  } catch (const Error&) {
    throw StoreError("its " + std::string(column) + " is stored as \"" + ToText(value) +
                     "\", which is not a whole number of 32 bits." + kCorrectTheValue);
  }
}

/// What every study has, from its row.
Study SharedPart(std::int32_t id, const host::Recordset& row) {
  Study study{std::make_shared<CKivStudyData>(), ToText(row.Field("name")), StudyNumber(row, "revision")};
  CKivStudyData& record = *study.record;
  record.SetAppName(ToText(row.Field("kind")));
  record.SetID(id);
  record.SetScenarioID(StudyNumber(row, "scenario_id"));
  record.SetDuration(StudyNumber(row, "duration"));
  record.SetPollingInterval(StudyNumber(row, "polling_interval"));
  record.SetRetrieveDelay(StudyNumber(row, "retrieve_delay"));
  study.modifiedAt = ToText(row.Field("modified_at"));
  study.kindData = KindData::Unknown;
  return study;
}

/// Reads what belongs to the study's kind. A record has an identifier only when there was a row to load.
void LoadKindData(Study& study) {
  CKivStudyData& record = *study.record;
  record.InitEdit(record.AppName(), EditorNameOf(record.AppName()), record.StudyType(), record.ScenarioType(),
                  record.ID(), record.ScenarioID(), record.Duration(), record.PollingInterval(),
                  record.RetrieveDelay());
  study.kindData = record.SubRecord()->ID() == record.ID() ? KindData::Complete : KindData::Missing;
}

/// An update of a kind's row that is not there would store nothing and say nothing: it is inserted then.
class InsertWhenMissing {
 public:
  InsertWhenMissing(CKivStudyData& record, bool stored) : record_(record), before_(record.IsNew()) {
    record_.SetIsNew(before_ || !stored);
  }
  InsertWhenMissing(const InsertWhenMissing&) = delete;
  InsertWhenMissing& operator=(const InsertWhenMissing&) = delete;
  ~InsertWhenMissing() { record_.SetIsNew(before_); }

 private:
  CKivStudyData& record_;
  bool before_;
};

}  // namespace

StudyStore::StudyStore(std::shared_ptr<database::Connection> connection, std::shared_ptr<ErrorLog> errors)
    : connection_(std::move(connection)),
      changes_(*connection_),
      history_(*connection_, changes_),
      scenarios_(*connection_, changes_),
      errors_(std::move(errors)) {}

host::Services StudyStore::OwnServices() const {
  return {.openDatabase = [connection = connection_] { return connection; }, .errorReporter = errors_};
}

std::vector<StudySummary> StudyStore::List() const {
  return Summaries(*connection_, kInOrder);
}

void StudyStore::ForEach(const SummaryVisitor& visit) const {
  VisitSummaries(*connection_, kInOrder, visit);
}

std::vector<StudySummary> StudyStore::ListFrom(std::int32_t id, std::size_t most) const {
  return Summaries(*connection_,
                   "WHERE s.id >= " + std::to_string(id) + " ORDER BY s.id LIMIT " + std::to_string(most));
}

std::optional<StudySummary> StudyStore::Summary(std::int32_t id) const {
  std::vector<StudySummary> found = Summaries(*connection_, "WHERE s.id = " + std::to_string(id));
  return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

std::size_t StudyStore::Count() const {
  return static_cast<std::size_t>(ToInt32(Query(*connection_, "SELECT count(*) FROM kiv_study")->FieldAt(0)));
}

Study StudyStore::Load(std::int32_t id) const {
  // Its lists are read one after the other, and somebody may save in between.
  const database::Transaction transaction(*connection_, database::Transaction::Access::Read);
  return Read(id);
}

Study StudyStore::Read(std::int32_t id) const {
  const host::Scope own(OwnServices(), host::Rest::AsBefore);
  const ErrorLog::Watch watch(*errors_);
  const auto row = Query(*connection_,
                         "SELECT kind, name, scenario_id, duration, polling_interval, retrieve_delay, "
                         "revision, modified_at FROM "
                         "kiv_study WHERE id = " +
                             std::to_string(id));
  if (row->EndOfFile()) {
    throw StoreError("There is no study " + std::to_string(id) + ". It may have been deleted.");
  }
  const std::string name = ToText(row->Field("name"));
  Study study;
  try {
    study = SharedPart(id, *row);
    if (!FindStudyKind(study.record->AppName())) return study;
    LoadKindData(study);
  } catch (const StoreError& error) {
    throw StoreError(NotOpened(id, name) + error.what());
  } catch (const host::DatabaseError&) {
    throw;
  } catch (const Error& error) {
    throw StoreError(NotOpened(id, name) + "a stored value of its kind cannot be read (" + error.what() +
                     ")." + kCorrectTheValue);
  }
  try {
    watch.RaiseFirst();  // an editor on half a study would write that half back
  } catch (const StoreError& error) {
    throw StoreError(NotOpened(id, name) + error.what() +
                     ". Try again; if that does not help, ask whoever runs the database.");
  }
  return study;
}

void StudyStore::Save(Study& study, const std::string& user) {
  if (study.unsettled && !study.unsettled->asCopy) Settle(study);
  Store(study, user, false);
}

void StudyStore::Store(Study& study, const std::string& user, bool asCopy) {
  CKivStudyData& record = *study.record;
  const std::int32_t idBefore = record.ID();
  const std::string now = UtcNow();
  std::int32_t revision = 0;
  try {
    const StudyEvent event = record.IsNew() ? StudyEvent::Created : StudyEvent::Changed;
    Change change(changes_, {EventName(event), user, now, 1});
    revision = Write(study, {event, user, now, change});
    change.Commit();
  } catch (const OutcomeUnknown& unknown) {
    if (!unknown.Token().empty()) study.unsettled = {unknown.Token(), record.ID(), revision, asCopy};
    record.SetID(idBefore);
    throw;
  } catch (const database::StatementError& error) {
    record.SetID(idBefore);
    if (error.Cause() == database::FailureCause::Constraint && ScenarioIsDeleted(record)) {
      throw ScenarioDeleted();
    }
    throw;
  } catch (...) {
    record.SetID(idBefore);
    throw;
  }
  study.revision = revision;
  study.modifiedAt = now;
  study.kindData = KindData::Complete;
  record.SetIsNew(false);
}

/// Goes on from a save whose answer was lost, when it was stored.
void StudyStore::Settle(Study& study) const {
  if (changes_.IsStored(study.unsettled->token)) {
    study.record->SetID(study.unsettled->id);
    study.record->SetIsNew(false);
    study.revision = study.unsettled->revision;
  }
  study.unsettled.reset();
}

/// Writes a study within a transaction, and what happened into its history; returns its revision.
std::int32_t StudyStore::Write(Study& study, const SaveNote& note, Identifier identifier) {
  const host::Scope own(OwnServices(), host::Rest::AsBefore);
  const ErrorLog::Watch watch(*errors_);
  CKivStudyData& record = *study.record;
  if (!record.IsNew()) KeepKnownState(record.ID(), study.revision, note.change);
  // Asked before anything is written, because the rows of the study wait to be sent together.
  const std::string scenario = history_.IsKept() ? scenarios_.NameOf(record.ScenarioID()) : std::string();
  const WrittenRow row = WriteStudyRow(study, note, identifier);
  {
    const InsertWhenMissing missing(record, row.hasKindData);
    record.SaveSubTableData();
  }
  watch.RaiseFirst();
  AddToHistory(study, scenario, row.revision, note);
  return row.revision;
}

void StudyStore::AddAll(std::vector<NamedStudy>& studies, const std::string& user) {
  const std::string now = UtcNow();
  Change change(changes_, {"import", user, now, studies.size()});
  for (NamedStudy& named : studies) {
    if (!named.scenario.empty()) named.study.record->SetScenarioID(scenarios_.FindOrAdd(named.scenario));
    named.study.revision = Write(named.study, {StudyEvent::Created, user, now, change});
  }
  change.Commit();
  for (const NamedStudy& named : studies) named.study.record->SetIsNew(false);
}

bool StudyStore::ScenarioIsDeleted(const CKivStudyData& record) const {
  if (record.ScenarioID() == CKivStudyData::kNotGiven) return false;
  return Query(*connection_, "SELECT 1 FROM kiv_scenario WHERE id = " + std::to_string(record.ScenarioID()))
      ->EndOfFile();
}

/// Sets the identifier of a new study.
StudyStore::WrittenRow StudyStore::WriteStudyRow(const Study& study, const SaveNote& note,
                                                 Identifier identifier) {
  CKivStudyData& record = *study.record;
  std::vector<host::Assignment> values = {
      {"kind", record.AppName()},
      {"name", study.name},
      {"scenario_id", ScenarioReference(record.ScenarioID())},
      {"duration", record.Duration()},
      {"polling_interval", record.PollingInterval()},
      {"retrieve_delay", record.RetrieveDelay()},
      {"revision", study.revision + 1},
      {"modified_by", note.user},
      {"modified_at", note.time},
  };
  if (record.IsNew()) {
    if (identifier == Identifier::OfRecord) values.push_back({"id", record.ID()});
    const auto row = Query(
        *connection_, sql::InsertStatement(*connection_, kStudyTable, values) + " RETURNING id, revision");
    record.SetID(ToInt32(row->Field("id")));
    return {ToInt32(row->Field("revision")), false};
  }
  const auto row =
      Query(*connection_, sql::UpdateStatement(*connection_, kStudyTable, values, record.ID()) +
                              " AND revision = " + std::to_string(study.revision) +
                              " RETURNING revision, (SELECT count(*) FROM " +
                              FindStudyKind(record.AppName())->table + " k WHERE k.Id = kiv_study.id)");
  if (row->EndOfFile()) throw ConflictOver(record.ID());
  return {ToInt32(row->FieldAt(0)), ToInt32(row->FieldAt(1)) > 0};
}

StudyConflict StudyStore::ConflictOver(std::int32_t id) const {
  const auto row =
      Query(*connection_, "SELECT modified_by, modified_at FROM kiv_study WHERE id = " + std::to_string(id));
  if (row->EndOfFile()) {
    return {StudyConflict::Reason::Deleted,
            "The study was deleted while you were editing it. Save your version as a copy to keep it."};
  }
  return {StudyConflict::Reason::Changed,
          "The study was changed by " + ToText(row->Field("modified_by")) + " at " +
              LocalTimeText(ToText(row->Field("modified_at"))) +
              " while you were editing it. Reload it and lose your changes, or save your version as a copy."};
}

void StudyStore::SaveCopy(Study& study, const std::string& user) {
  CKivStudyData& record = *study.record;
  if (study.unsettled && study.unsettled->asCopy) {
    const bool wasNew = record.IsNew();
    const std::int32_t id = record.ID();
    Settle(study);
    if (record.ID() != id || record.IsNew() != wasNew) return Store(study, user, false);  // into that copy
  }
  const Study before = study;
  const bool wasNew = record.IsNew();
  record.SetIsNew(true);
  study.revision = 0;
  try {
    Store(study, user, true);
  } catch (...) {
    record.SetIsNew(wasNew);
    study.revision = before.revision;
    throw;
  }
}

}  // namespace kiv::store
