#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "client/error_log.h"
#include "client/store_error.h"
#include "core/study_data.h"
#include "database/connection.h"
#include "host/documents.h"

namespace kiv::client {

/// One line of the list of studies.
struct StudySummary {
  std::int32_t id = 0;
  std::string kind;
  std::string name;
  std::string scenario;                              ///< empty when the study has none
  std::int32_t duration = CKivStudyData::kNotGiven;  ///< also when the stored one is no number
  std::string modifiedBy;
  std::string modifiedAt;  ///< UTC, such as 2026-03-09T13:05:00Z
};

/// Whether the database has what belongs to a study's kind.
enum class KindData {
  Complete,
  Missing,  ///< no row: the record has its first values, and the next save stores it again
  Unknown   ///< of a kind that this program does not know: there is no sub-record
};

/// Tells the user what KindData::Missing means and how it is mended.
std::string MissingDataText(std::int32_t id);

/// A study with what the program stores beside the shared record.
struct Study {
  std::shared_ptr<CKivStudyData> record;
  std::string name;
  std::int32_t revision = 0;  ///< counts the saves; 0 while the study was never stored
  KindData kindData = KindData::Complete;
};

/// Studies and scenarios in the program's database. Database failures are raised as host::DatabaseError.
class StudyStore {
 public:
  StudyStore(std::shared_ptr<database::Connection> connection, std::shared_ptr<ErrorLog> errors);

  database::Connection& Database() const { return *connection_; }

  /// Every study by ascending identifier.
  std::vector<StudySummary> List() const;

  /// A new study of a kind that is not stored yet.
  Study New(const std::string& kind) const;
  /// A study as one save left it. Raises StoreError when there is no such study or when it could not be read
  /// completely. A study whose kind has no data is loaded; look at `kindData`.
  Study Load(std::int32_t id) const;
  /// Stores a study whole or not at all, as a new one while its record is new. On success the record is no
  /// longer new; on failure the study is as it was before. Raises ScenarioDeleted.
  void Save(Study& study, const std::string& user);
  /// Stores a copy under a new identifier; on failure the study is as it was before.
  void SaveCopy(Study& study, const std::string& user);
  void Remove(std::int32_t id);

  std::vector<host::Document> Scenarios() const;
  /// Identifier of the new scenario. Raises StoreError for an empty name or one that exists already.
  std::int32_t AddScenario(const std::string& name);
  void RenameScenario(std::int32_t id, const std::string& name);
  /// Raises StoreError while studies belong to the scenario.
  void RemoveScenario(std::int32_t id);

 private:
  struct WrittenRow {
    std::int32_t revision;
    bool hasKindData;  ///< whether what belongs to its kind was stored before
  };

  Study LoadOnce(std::int32_t id) const;
  WrittenRow WriteStudyRow(const Study& study, const std::string& user);
  bool ScenarioIsDeleted(const CKivStudyData& record) const;
  StudyConflict ConflictOver(std::int32_t id) const;
  std::string CheckedScenarioName(const std::string& name, std::int32_t ownId) const;

  std::shared_ptr<database::Connection> connection_;
  std::shared_ptr<ErrorLog> errors_;
};

}  // namespace kiv::client
