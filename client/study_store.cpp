#include "client/study_store.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "core/conversions.h"
#include "core/fields.h"
#include "core/msql.h"
#include "core/numeric_text.h"
#include "database/transaction.h"
#include "editor/study_editors.h"

namespace kiv::client {

namespace {

constexpr std::string_view kStudyTable = "kiv_study";

std::string UtcNow() {
  const std::time_t now = std::time(nullptr);
  std::tm utc{};
  gmtime_r(&now, &utc);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text;
}

std::string EditorNameOf(const std::string& kind) {
  const StudyEditor* editor = FindStudyEditor(kind);
  if (!editor) throw StoreError("This program has no editor for studies of the kind \"" + kind + "\".");
  return std::string(editor->editorName);
}

/// A scenario that was never chosen has no row to point at.
Variant ScenarioReference(std::int32_t id) {
  return id == CKivStudyData::kNotGiven ? Variant() : Variant(id);
}

std::int32_t NumberOrNotGiven(const Variant& field) {
  return field.IsNull() ? CKivStudyData::kNotGiven : ToInt32(field);
}

}  // namespace

StudyStore::StudyStore(std::shared_ptr<database::Connection> connection, std::shared_ptr<ErrorLog> errors)
    : connection_(std::move(connection)), errors_(std::move(errors)) {}

std::vector<StudySummary> StudyStore::List() const {
  const auto rows = MSQL::OpenQuery(
      "SELECT s.id, s.kind, s.name, c.name AS scenario, s.duration, s.modified_by, s.modified_at "
      "FROM kiv_study s LEFT JOIN kiv_scenario c ON c.id = s.scenario_id ORDER BY s.id");
  std::vector<StudySummary> studies;
  studies.reserve(static_cast<std::size_t>(rows->RecordCount()));
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    int column = 0;
    const auto next = [&] { return rows->FieldAt(column++); };
    StudySummary& study = studies.emplace_back();
    study.id = ToInt32(next());
    study.kind = ToText(next());
    study.name = ToText(next());
    study.scenario = ToText(next());
    study.duration = NumberOrNotGiven(next());
    study.modifiedBy = ToText(next());
    study.modifiedAt = ToText(next());
  }
  return studies;
}

Study StudyStore::New(const std::string& kind) const {
  Study study{std::make_shared<CKivStudyData>(), {}, 0};
  study.record->InitNew(kind, EditorNameOf(kind), study.record->StudyType(), study.record->ScenarioType(), 0);
  return study;
}

Study StudyStore::Load(std::int32_t id) const {
  const ErrorLog::Watch watch(*errors_);
  const auto row = MSQL::OpenQuery(
      "SELECT kind, name, scenario_id, duration, polling_interval, retrieve_delay, revision FROM kiv_study "
      "WHERE id = " +
      std::to_string(id));
  if (row->EndOfFile()) {
    throw StoreError("There is no study " + std::to_string(id) +
                     ". List the studies to see which there are.");
  }
  const std::string kind = ToText(row->Field("kind"));
  Study study{std::make_shared<CKivStudyData>(), ToText(row->Field("name")), ToInt32(row->Field("revision"))};
  const auto number = [&row](std::string_view name) { return Variant(NumberOrNotGiven(row->Field(name))); };
  study.record->InitEdit(kind, EditorNameOf(kind), study.record->StudyType(), study.record->ScenarioType(),
                         id, number("scenario_id"), number("duration"), number("polling_interval"),
                         number("retrieve_delay"));
  try {
    watch.RaiseFirst();  // an editor on half a study would write that half back
  } catch (const StoreError& error) {
    throw StoreError("Study " + std::to_string(id) + " was not opened: " + error.what() +
                     ". Try again; if that does not help, ask whoever runs the database.");
  }
  return study;
}

void StudyStore::Save(Study& study, const std::string& user) {
  CKivStudyData& record = *study.record;
  const std::int32_t idBefore = record.ID();
  try {
    database::Transaction transaction(*connection_);
    const ErrorLog::Watch watch(*errors_);
    const std::int32_t revision = WriteStudyRow(study, user);
    record.SaveSubTableData();
    watch.RaiseFirst();
    transaction.Commit();
    study.revision = revision;
    record.SetIsNew(false);
  } catch (...) {
    record.SetID(idBefore);
    throw;
  }
}

/// Returns the row's revision; sets the identifier of a new study.
std::int32_t StudyStore::WriteStudyRow(const Study& study, const std::string& user) {
  CKivStudyData& record = *study.record;
  const std::vector<host::Assignment> values = {
      {"kind", record.AppName()},
      {"name", study.name},
      {"scenario_id", ScenarioReference(record.ScenarioID())},
      {"duration", record.Duration()},
      {"polling_interval", record.PollingInterval()},
      {"retrieve_delay", record.RetrieveDelay()},
      {"revision", study.revision + 1},
      {"modified_by", user},
      {"modified_at", UtcNow()},
  };
  if (record.IsNew()) {
    const auto row =
        MSQL::OpenQuery(sql::InsertStatement(*connection_, kStudyTable, values) + " RETURNING id, revision");
    record.SetID(ToInt32(row->Field("id")));
    return ToInt32(row->Field("revision"));
  }
  const auto row =
      MSQL::OpenQuery(sql::UpdateStatement(*connection_, kStudyTable, values, record.ID()) +
                      " AND revision = " + std::to_string(study.revision) + " RETURNING revision");
  if (row->EndOfFile()) throw ConflictOver(record.ID());
  return ToInt32(row->Field("revision"));
}

StudyConflict StudyStore::ConflictOver(std::int32_t id) const {
  const auto row =
      MSQL::OpenQuery("SELECT modified_by, modified_at FROM kiv_study WHERE id = " + std::to_string(id));
  if (row->EndOfFile()) {
    return StudyConflict(
        "The study was deleted while you were editing it. Save your version as a copy to keep it.");
  }
  return StudyConflict(
      "The study was changed by " + ToText(row->Field("modified_by")) + " at " +
      ToText(row->Field("modified_at")) +
      " while you were editing it. Reload it and lose your changes, or save your version as a "
      "copy.");
}

void StudyStore::SaveCopy(Study& study, const std::string& user) {
  CKivStudyData& record = *study.record;
  const Study before = study;
  const bool wasNew = record.IsNew();
  record.SetIsNew(true);
  study.revision = 0;
  try {
    Save(study, user);
  } catch (...) {
    record.SetIsNew(wasNew);
    study = before;
    throw;
  }
}

void StudyStore::Remove(std::int32_t id) {
  connection_->ExecuteSql("DELETE FROM kiv_study WHERE id = " + std::to_string(id));
}

std::vector<host::Document> StudyStore::Scenarios() const {
  const auto rows = MSQL::OpenQuery("SELECT id, name FROM kiv_scenario");
  std::vector<host::Document> scenarios;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    scenarios.push_back({ToInt32(rows->FieldAt(0)), ToText(rows->FieldAt(1))});
  }
  std::sort(scenarios.begin(), scenarios.end(),
            [](const auto& left, const auto& right) { return left.name < right.name; });
  return scenarios;
}

std::string StudyStore::CheckedScenarioName(const std::string& name, std::int32_t ownId) const {
  std::string trimmed(Trimmed(name));
  if (trimmed.empty()) throw StoreError("A scenario needs a name.");
  const auto same = MSQL::OpenQuery("SELECT id FROM kiv_scenario WHERE lower(name) = lower(" +
                                    connection_->FormatValueList({{Variant(trimmed)}}) + ")");
  if (!same->EndOfFile() && ToInt32(same->FieldAt(0)) != ownId) {
    throw StoreError("There is already a scenario named \"" + trimmed + "\". Choose another name.");
  }
  return trimmed;
}

std::int32_t StudyStore::AddScenario(const std::string& name) {
  const std::string checked = CheckedScenarioName(name, CKivStudyData::kNotGiven);
  const std::vector<host::Assignment> values = {{"name", checked}};
  const auto row =
      MSQL::OpenQuery(sql::InsertStatement(*connection_, "kiv_scenario", values) + " RETURNING id");
  return ToInt32(row->FieldAt(0));
}

void StudyStore::RenameScenario(std::int32_t id, const std::string& name) {
  const std::vector<host::Assignment> values = {{"name", CheckedScenarioName(name, id)}};
  connection_->ExecuteSql(sql::UpdateStatement(*connection_, "kiv_scenario", values, id));
}

void StudyStore::RemoveScenario(std::int32_t id) {
  const auto users =
      MSQL::OpenQuery("SELECT count(*) FROM kiv_study WHERE scenario_id = " + std::to_string(id));
  if (const std::int32_t count = ToInt32(users->FieldAt(0)); count > 0) {
    throw StoreError("The scenario still has " + std::to_string(count) +
                     (count == 1 ? " study" : " studies") + ". Move or delete them first.");
  }
  connection_->ExecuteSql("DELETE FROM kiv_scenario WHERE id = " + std::to_string(id));
}

}  // namespace kiv::client
