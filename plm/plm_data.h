#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "core/fields.h"
#include "core/keyed_collection.h"
#include "core/sub_record.h"
#include "plm/plm_mode.h"

namespace kiv {

/// What a PLM study measures and where its data go: one row of KIV_PlmStudy, and its measurement modes.
class CKivPlmData : public SubRecord {
 public:
  using ModeCollection = KeyedCollection<CKivPlmMode>;

  /// Folder and name pattern of the data file.
  const std::string& Path() const { return path_; }
  void SetPath(std::string path) { path_ = std::move(path); }
  const std::string& DataFile() const { return dataFile_; }
  void SetDataFile(std::string dataFile) { dataFile_ = std::move(dataFile); }
  /// What the switch writes into the data.
  const std::string& Tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }

  // Kept for the owner only; the study record stores what it needs of them.
  std::int32_t Duration() const { return duration_; }
  void SetDuration(std::int32_t minutes) { duration_ = minutes; }
  std::int32_t ScenarioID() const { return scenarioId_; }
  void SetScenarioID(std::int32_t id) { scenarioId_ = id; }

  /// Sets what is stored in the study's own row.
  void Initialize(std::int32_t id, std::string path, std::string dataFile, std::string tag);

  /// Adds a mode and makes the key its own. A key that is taken already keeps its mode.
  void AddMode(const std::string& key, const std::shared_ptr<CKivPlmMode>& mode);
  /// The mode under this key; a new one that belongs to no study when there is none.
  std::shared_ptr<CKivPlmMode> ReturnMode(const std::string& key) const;
  /// An absent key is no error.
  void RemoveMode(const std::string& key);
  /// Number of checked modes.
  std::int32_t ModeCount() const;
  /// The modes by name; also walked by a for loop over the record itself.
  const std::shared_ptr<ModeCollection>& Modes() const { return modes_; }
  ModeCollection::Iterator begin() const { return modes_->begin(); }
  ModeCollection::Iterator end() const { return modes_->end(); }

  std::string_view KindName() const override;
  /// Loads the study's row, whose failure is reported and leaves it as it was, and then the modes with their
  /// channels, whose failure is raised. Loaded modes are not checked.
  void GetData(std::int32_t id) override;
  /// Writes the study, its checked modes and their channels. A failure is raised.
  bool InsertNew() override;
  /// Deletes the study's channels and its row, which takes the stored modes along in the database, and writes
  /// everything anew. A failure is raised.
  void Update() override;
  std::vector<NamedValue> StoredFields() const override;
  std::vector<StoredList> StoredLists() const override;
  /// Only the checked modes.
  std::vector<StoredList> WrittenLists() const override;
  std::vector<ListIdentity> ListIdentities() const override;
  std::vector<RecordFault> Faults() const override;
  void ReadStored(StoredReader& reader) override;

  /// The list of the modes.
  static constexpr std::string_view kModeList = "Modes";
  /// The table with a row for each of these studies.
  static constexpr std::string_view kTable = "KIV_PlmStudy";
  /// The columns of it in the order of the insert.
  static std::span<const RecordField<CKivPlmData>> Fields();

 private:
  std::string path_;
  std::string dataFile_;
  std::string tag_;
  std::int32_t duration_ = 0;
  std::int32_t scenarioId_ = 0;
  std::shared_ptr<ModeCollection> modes_ = std::make_shared<ModeCollection>();
};

}  // namespace kiv
