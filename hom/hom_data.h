#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "core/fields.h"
#include "core/sub_record.h"

namespace kiv {

/// The modes of a HOM study, as they are stored and in the order of the detail tab's list.
namespace hom_mode {
enum : std::int32_t { kNormal, kTdmaHeat, kCdmaHeat };
}  // namespace hom_mode

/// What a HOM (handoff) study records and where it goes; one row of KIV_HomStudy.
/// Selections are the texts "Y" and "N".
class CKivHomData : public SubRecord {
 public:
  /// Folder and name pattern of the data file.
  const std::string& Path() const { return path_; }
  void SetPath(std::string path) { path_ = std::move(path); }
  const std::string& DataFile() const { return dataFile_; }
  void SetDataFile(std::string dataFile) { dataFile_ = std::move(dataFile); }
  /// Index of the mode in the detail tab's list.
  std::int32_t HomMode() const { return homMode_; }
  void SetHomMode(std::int32_t homMode) { homMode_ = homMode; }

  // The handoff types that the study records.
  const std::string& ToAmps() const { return toAmps_; }
  void SetToAmps(std::string value) { toAmps_ = std::move(value); }
  const std::string& FromAmps() const { return fromAmps_; }
  void SetFromAmps(std::string value) { fromAmps_ = std::move(value); }
  const std::string& ToTdmaAmps() const { return toTdmaAmps_; }
  void SetToTdmaAmps(std::string value) { toTdmaAmps_ = std::move(value); }
  const std::string& ToTdma() const { return toTdma_; }
  void SetToTdma(std::string value) { toTdma_ = std::move(value); }
  const std::string& SemiSoft() const { return semiSoft_; }
  void SetSemiSoft(std::string value) { semiSoft_ = std::move(value); }
  const std::string& Hard() const { return hard_; }
  void SetHard(std::string value) { hard_ = std::move(value); }
  const std::string& ToCdmaAmps() const { return toCdmaAmps_; }
  void SetToCdmaAmps(std::string value) { toCdmaAmps_ = std::move(value); }
  const std::string& SemiSoftPrimary() const { return semiSoftPrimary_; }
  void SetSemiSoftPrimary(std::string value) { semiSoftPrimary_ = std::move(value); }
  const std::string& SoftPrimary() const { return softPrimary_; }
  void SetSoftPrimary(std::string value) { softPrimary_ = std::move(value); }
  const std::string& SoftAdd() const { return softAdd_; }
  void SetSoftAdd(std::string value) { softAdd_ = std::move(value); }
  const std::string& SoftDrop() const { return softDrop_; }
  void SetSoftDrop(std::string value) { softDrop_ = std::move(value); }

  // The optional data file of the current study.
  const std::string& CollectData() const { return collectData_; }
  void SetCollectData(std::string value) { collectData_ = std::move(value); }
  const std::string& StartOnFail() const { return startOnFail_; }
  void SetStartOnFail(std::string value) { startOnFail_ = std::move(value); }
  const std::string& CurStdDatafile() const { return curStdDatafile_; }
  void SetCurStdDatafile(std::string value) { curStdDatafile_ = std::move(value); }
  const std::string& CurStdPath() const { return curStdPath_; }
  void SetCurStdPath(std::string value) { curStdPath_ = std::move(value); }

  /// Sets every stored property at once.
  void Initialize(std::int32_t id, std::string path, std::string dataFile, std::int32_t homMode,
                  std::string toAmps, std::string fromAmps, std::string toTdmaAmps, std::string toTdma,
                  std::string semiSoft, std::string hard, std::string toCdmaAmps, std::string semiSoftPrimary,
                  std::string softPrimary, std::string softAdd, std::string softDrop, std::string collectData,
                  std::string startOnFail, std::string curStdDatafile, const Variant& curStdPath);

  std::string_view KindName() const override;
  /// A study without a row leaves the record as it was; so does a failing load, which is reported.
  void GetData(std::int32_t id) override;
  bool InsertNew() override;
  void Update() override;
  std::vector<NamedValue> StoredFields() const override;
  std::vector<RecordFault> Faults() const override;
  void ReadStored(StoredReader& reader) override;

  /// The table with a row for each of these studies.
  static constexpr std::string_view kTable = "KIV_HomStudy";
  /// The columns of it in the order of the insert.
  static std::span<const RecordField<CKivHomData>> Fields();

 private:
  std::string path_;
  std::string dataFile_;
  std::int32_t homMode_ = 0;
  std::string toAmps_;
  std::string fromAmps_;
  std::string toTdmaAmps_;
  std::string toTdma_;
  std::string semiSoft_;
  std::string hard_;
  std::string toCdmaAmps_;
  std::string semiSoftPrimary_;
  std::string softPrimary_;
  std::string softAdd_;
  std::string softDrop_;
  std::string collectData_;
  std::string startOnFail_;
  std::string curStdDatafile_;
  std::string curStdPath_;
};

namespace MSQL {

/// Loads the row of a study. A database failure is reported and leaves the record as it was.
void LoadHomData(std::int32_t id, CKivHomData& record);
/// Both write routines report their own failures; false when the row was not written.
bool InsertHomData(const CKivHomData& record);
bool UpdateHomData(const CKivHomData& record);

}  // namespace MSQL

}  // namespace kiv
