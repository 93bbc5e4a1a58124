#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/connection.h"
#include "host/services.h"
#include "store/history/study_history.h"
#include "store/store_error.h"
#include "store/studies/error_log.h"
#include "store/studies/scenarios.h"
#include "store/study.h"

namespace kiv::store {

/// One line of the list of studies.
template <typename Text>
struct SummaryWith {
  std::int32_t id = 0;
  Text kind{};
  Text name{};
  Text scenario{};                                   ///< empty when the study has none
  std::int32_t duration = CKivStudyData::kNotGiven;  ///< also when the stored one is no number
  Text modifiedBy{};
  Text modifiedAt{};  ///< UTC, such as 2026-03-09T13:05:00Z

  friend bool operator==(const SummaryWith&, const SummaryWith&) = default;
};

using StudySummary = SummaryWith<std::string>;
/// Its texts live until the visitor returns.
using StudyLine = SummaryWith<std::string_view>;
using SummaryVisitor = std::function<void(const StudyLine&)>;

/// The studies in the program's database. Database failures are raised as host::DatabaseError.
class StudyStore {
 public:
  StudyStore(std::shared_ptr<database::Connection> connection, std::shared_ptr<ErrorLog> errors);

  database::Connection& Database() const { return *connection_; }

  /// Every study by ascending identifier.
  std::vector<StudySummary> List() const;
  /// The same one by one, without keeping them.
  void ForEach(const SummaryVisitor& visit) const;
  /// The same from an identifier on, at most so many.
  std::vector<StudySummary> ListFrom(std::int32_t id, std::size_t most) const;
  /// One line of the list; nothing when there is no such study.
  std::optional<StudySummary> Summary(std::int32_t id) const;
  std::size_t Count() const;

  /// A new study of a kind that is not stored yet.
  Study New(const std::string& kind) const { return NewStudy(kind); }
  /// A study as one save left it. Raises StoreError when there is no such study or when it could not be read
  /// completely. A study whose kind has no data is loaded; look at `kindData`.
  Study Load(std::int32_t id) const;
  /// Stores a study whole or not at all, as a new one while its record is new. On success the record is no
  /// longer new; on failure the study is as it was before. Raises ScenarioDeleted, and OutcomeUnknown: then
  /// the study remembers the save, and the next one first asks what became of it.
  void Save(Study& study, const std::string& user);
  /// Stores a copy under a new identifier; on failure the study is as it was before.
  void SaveCopy(Study& study, const std::string& user);
  /// Stores new studies, all or none. A scenario that one names is made when there is none of that name.
  void AddAll(std::vector<NamedStudy>& studies, const std::string& user);
  /// A study that is not there any more is no error.
  void Remove(std::int32_t id, const std::string& user);
  /// Brings a state of the history back as the newest revision, whose number is returned; a deleted study
  /// under its old number. Raises StoreError when there is no such state, or the study has it now.
  std::int32_t Restore(std::int32_t id, std::int32_t revision, const std::string& user);
  const StudyHistory& History() const { return history_; }

  const Changes& AllChanges() const { return changes_; }

  store::Scenarios& Scenarios() { return scenarios_; }
  const store::Scenarios& Scenarios() const { return scenarios_; }

 private:
  struct WrittenRow {
    std::int32_t revision;
    bool hasKindData;  ///< whether what belongs to its kind was stored before
  };

  /// What records load and save themselves by, whatever else the host has open.
  host::Services OwnServices() const;
  /// Within a transaction.
  Study Read(std::int32_t id) const;
  /// Where the identifier of an inserted study comes from.
  enum class Identifier { OfDatabase, OfRecord };

  struct SaveNote {
    StudyEvent event;
    std::string user;
    std::string time;
    const Change& change;
  };

  void Store(Study& study, const std::string& user, bool asCopy);
  void Settle(Study& study) const;
  std::int32_t Write(Study& study, const SaveNote& note, Identifier identifier = Identifier::OfDatabase);
  WrittenRow WriteStudyRow(const Study& study, const SaveNote& note, Identifier identifier);
  std::optional<std::int32_t> LockStudy(std::int32_t id);
  void KeepKnownState(std::int32_t id, std::int32_t revision, const Change& change);
  void AddToHistory(const Study& study, const std::string& scenario, std::int32_t revision,
                    const SaveNote& note);
  bool ScenarioIsDeleted(const CKivStudyData& record) const;
  StudyConflict ConflictOver(std::int32_t id) const;

  std::shared_ptr<database::Connection> connection_;
  Changes changes_;
  StudyHistory history_;
  store::Scenarios scenarios_;
  std::shared_ptr<ErrorLog> errors_;
};

}  // namespace kiv::store
