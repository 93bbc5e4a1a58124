#include "store/studies/scenarios.h"

#include <algorithm>

#include "core/conversions.h"
#include "core/fields.h"
#include "core/numeric_text.h"
#include "core/study_data.h"
#include "database/statement_error.h"
#include "store/names.h"
#include "store/query.h"
#include "store/store_error.h"
#include "store/times.h"

namespace kiv::store {

namespace {

constexpr std::string_view kScenarioTable = "kiv_scenario";

StoreError NameTaken(const std::string& name) {
  return StoreError("There is already a scenario named \"" + name + "\". Choose another name.");
}

StoreError StillUsed(const std::string& studies) {
  return StoreError("The scenario still has " + studies + ". Move or delete them first.");
}

}  // namespace

std::vector<host::Document> Scenarios::List() const {
  const auto rows = Query(connection_, "SELECT id, name FROM kiv_scenario");
  std::vector<host::Document> scenarios;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    scenarios.push_back({ToInt32(rows->FieldAt(0)), ToText(rows->FieldAt(1))});
  }
  std::ranges::sort(scenarios, {}, &host::Document::name);
  return scenarios;
}

std::optional<std::int32_t> Scenarios::Find(const std::string& name) const {
  const auto row = Query(connection_, "SELECT id FROM kiv_scenario WHERE lower(name) = lower(" +
                                          connection_.FormatValueList({{Variant(name)}}) + ")");
  if (row->EndOfFile()) return std::nullopt;
  return ToInt32(row->FieldAt(0));
}

std::string Scenarios::NameOf(std::int32_t id) const {
  if (id == CKivStudyData::kNotGiven) return {};
  const auto row = Query(connection_, "SELECT name FROM kiv_scenario WHERE id = " + std::to_string(id));
  return row->EndOfFile() ? std::string() : ToText(row->FieldAt(0));
}

std::int32_t Scenarios::Add(const std::string& name, const std::string& user) {
  Change change(changes_, {.event = "scenario", .user = user, .time = UtcNow()});
  const std::string checked = CheckedName(name, CKivStudyData::kNotGiven);
  const auto id = Insert(checked);
  if (!id) throw NameTaken(checked);
  change.Commit();
  return *id;
}

/// Somebody else may have come first since it was checked.
void Scenarios::ExecuteUnlessForbidden(const std::string& sql, const StoreError& refusal) {
  try {
    connection_.ExecuteSql(sql);
  } catch (const database::StatementError& error) {
    if (error.Cause() == database::FailureCause::Constraint) throw StoreError(refusal);
    throw;
  }
}

std::optional<std::int32_t> Scenarios::Insert(const std::string& name) {
  // Somebody else may add the name in this moment; he is waited for, and nothing is inserted then.
  const std::vector<host::Assignment> values = {{"name", name}};
  const auto row = Query(connection_, sql::InsertStatement(connection_, kScenarioTable, values) +
                                          " ON CONFLICT DO NOTHING RETURNING id");
  return row->EndOfFile() ? std::nullopt : std::optional(ToInt32(row->FieldAt(0)));
}

std::int32_t Scenarios::FindOrAdd(const std::string& name) {
  if (const auto present = Find(name)) return *present;
  const std::string checked = CheckedName(name, CKivStudyData::kNotGiven);
  if (const auto added = Insert(checked)) return *added;
  const auto present = Find(checked);
  if (!present) throw NameTaken(checked);
  return *present;
}

void Scenarios::Rename(std::int32_t id, const std::string& name, const std::string& user) {
  Change change(changes_, {.event = "scenario", .user = user, .time = UtcNow()});
  const std::string checked = CheckedName(name, id);
  const std::vector<host::Assignment> values = {{"name", checked}};
  ExecuteUnlessForbidden(sql::UpdateStatement(connection_, kScenarioTable, values, id), NameTaken(checked));
  change.Commit();
}

void Scenarios::Remove(std::int32_t id, const std::string& user) {
  Change change(changes_, {.event = "scenario", .user = user, .time = UtcNow()});
  const auto users =
      Query(connection_, "SELECT count(*) FROM kiv_study WHERE scenario_id = " + std::to_string(id));
  if (const std::int32_t count = ToInt32(users->FieldAt(0)); count > 0) {
    throw StillUsed(std::to_string(count) + (count == 1 ? " study" : " studies"));
  }
  ExecuteUnlessForbidden("DELETE FROM kiv_scenario WHERE id = " + std::to_string(id), StillUsed("studies"));
  change.Commit();
}

std::string Scenarios::CheckedName(const std::string& name, std::int32_t ownId) const {
  std::string trimmed(Trimmed(name));
  if (trimmed.empty()) throw StoreError("A scenario needs a name.");
  if (const std::string fault = NameFault(trimmed); !fault.empty()) {
    throw StoreError("The name of a scenario " + fault + ". Choose another name.");
  }
  if (Find(trimmed).value_or(ownId) != ownId) {
    throw NameTaken(trimmed);
  }
  return trimmed;
}

std::string NameOf(std::span<const host::Document> scenarios, std::int32_t id) {
  const auto found = std::ranges::find(scenarios, id, &host::Document::id);
  return found == scenarios.end() ? std::string() : found->name;
}

}  // namespace kiv::store
