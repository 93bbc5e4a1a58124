#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "core/entities.h"
#include "core/fields.h"
#include "core/sub_record.h"

namespace kiv {

/// What a VCSA study records: event categories A to M on chosen cells, antennas and carriers. One row of
/// KIV_VcsStudy, and the study's lists of entities. Choices are the texts "Y" and "N".
class CKivVcsData : public SubRecord {
 public:
  static constexpr std::size_t kEventCategories = 13;
  /// The stored texts: path, data file, the events, the single DN and two options.
  static constexpr std::size_t kTexts = 2 + kEventCategories + 3;

  /// Folder and name pattern of the data file.
  const std::string& Path() const { return path_; }
  void SetPath(std::string path) { path_ = std::move(path); }
  const std::string& DataFile() const { return dataFile_; }
  void SetDataFile(std::string dataFile) { dataFile_ = std::move(dataFile); }

  /// Whether an event category is recorded; by its letter, or by its position from A.
  const std::string& Event(std::size_t category) const { return events_.at(category); }
  /// The name of its stored field.
  static std::string_view EventField(std::size_t category);
  void SetEvent(std::size_t category, std::string value) { events_.at(category) = std::move(value); }
  const std::string& EventA() const { return events_[0]; }
  void SetEventA(std::string value) { events_[0] = std::move(value); }
  const std::string& EventB() const { return events_[1]; }
  void SetEventB(std::string value) { events_[1] = std::move(value); }
  const std::string& EventC() const { return events_[2]; }
  void SetEventC(std::string value) { events_[2] = std::move(value); }
  const std::string& EventD() const { return events_[3]; }
  void SetEventD(std::string value) { events_[3] = std::move(value); }
  const std::string& EventE() const { return events_[4]; }
  void SetEventE(std::string value) { events_[4] = std::move(value); }
  const std::string& EventF() const { return events_[5]; }
  void SetEventF(std::string value) { events_[5] = std::move(value); }
  const std::string& EventG() const { return events_[6]; }
  void SetEventG(std::string value) { events_[6] = std::move(value); }
  const std::string& EventH() const { return events_[7]; }
  void SetEventH(std::string value) { events_[7] = std::move(value); }
  const std::string& EventI() const { return events_[8]; }
  void SetEventI(std::string value) { events_[8] = std::move(value); }
  const std::string& EventJ() const { return events_[9]; }
  void SetEventJ(std::string value) { events_[9] = std::move(value); }
  const std::string& EventK() const { return events_[10]; }
  void SetEventK(std::string value) { events_[10] = std::move(value); }
  const std::string& EventL() const { return events_[11]; }
  void SetEventL(std::string value) { events_[11] = std::move(value); }
  const std::string& EventM() const { return events_[12]; }
  void SetEventM(std::string value) { events_[12] = std::move(value); }

  /// The one directory number that the study is limited to; empty for none.
  const std::string& SingleDn() const { return singleDn_; }
  void SetSingleDn(std::string singleDn) { singleDn_ = std::move(singleDn); }
  const std::string& DirectionalSetup() const { return directionalSetup_; }
  void SetDirectionalSetup(std::string value) { directionalSetup_ = std::move(value); }
  const std::string& CarrierData() const { return carrierData_; }
  void SetCarrierData(std::string value) { carrierData_ = std::move(value); }

  /// The study's cells by key; unset after ClearCells.
  const std::shared_ptr<EntityCollection>& Cells() const { return cells_; }
  void SetCells(std::shared_ptr<EntityCollection> cells) { cells_ = std::move(cells); }
  /// Raises error 457 for a second cell of the same instance.
  void AddCell(std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId, std::int32_t cellId);
  void ClearCells() { cells_.reset(); }

  /// Add what the network configuration has of a cell.
  void LookupAntenna(CCell& cell) const;
  void LookupCarrier(CCell& cell) const;

  /// Sets every stored field at once, the texts in the order of their columns.
  void Initialize(std::int32_t id, std::array<std::string, kTexts> texts);

  std::string_view KindName() const override;
  /// Loads the row, which may be missing, and the lists. A failing load of the row is reported; the lists
  /// raise their failures.
  void GetData(std::int32_t id) override;
  bool InsertNew() override;
  void Update() override;
  std::vector<NamedValue> StoredFields() const override;
  /// The cells, each with its antennas and carriers.
  std::vector<StoredList> StoredLists() const override;
  std::vector<ListIdentity> ListIdentities() const override;
  std::vector<RecordFault> Faults() const override;
  void ReadStored(StoredReader& reader) override;

  /// The table with a row for each of these studies.
  static constexpr std::string_view kTable = "KIV_VcsStudy";
  /// The columns of it in the order of the insert.
  static std::span<const RecordField<CKivVcsData>> Fields();

 private:
  bool InsertCells() const;

  std::string path_;
  std::string dataFile_;
  std::array<std::string, kEventCategories> events_;
  std::string singleDn_;
  std::string directionalSetup_;
  std::string carrierData_;
  std::shared_ptr<EntityCollection> cells_ = std::make_shared<EntityCollection>();
};

namespace MSQL {

void LoadVcsData(std::int32_t id, CKivVcsData& record);
bool InsertVcsData(const CKivVcsData& record);
bool UpdateVcsData(const CKivVcsData& record);
/// Gives the cells of a list to the record.
void LoadVcsCellList(std::int32_t listId, CKivVcsData& record);

}  // namespace MSQL

}  // namespace kiv
