#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "core/entities.h"
#include "core/fields.h"
#include "core/sub_record.h"
#include "rfc/dn.h"
#include "rfc/faf_row.h"

namespace kiv {

/// How many rates a supplemental channel can be restricted to, numbered from 1.
inline constexpr std::int32_t kSupplementalRates = 5;

/// Whether tags can have this character: letters, digits and a few others.
bool IsTagCharacter(char16_t character);

/// What an RF call trace study traces: one row of KIV_RfcStudy, its ECP or its cells, and its directory
/// numbers. Choices are the texts "Y" and "N".
class CKivRfcData : public SubRecord {
 public:
  /// What the switch writes into its log for this study.
  const std::string& Tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }
  /// Whether log records with this tag are cleared before the study starts.
  const std::string& ClearLog() const { return clearLog_; }
  void SetClearLog(std::string clearLog) { clearLog_ = std::move(clearLog); }
  /// Whether the study may trace more than one DN.
  const std::string& MultipleDns() const { return multipleDns_; }
  void SetMultipleDns(std::string multipleDns) { multipleDns_ = std::move(multipleDns); }
  /// "Y" when the study traces one whole ECP, anything else when it traces cells.
  const std::string& UseEcp() const { return useEcp_; }
  void SetUseEcp(std::string useEcp) { useEcp_ = std::move(useEcp); }
  /// Folder of the data files.
  const std::string& Path() const { return path_; }
  void SetPath(std::string path) { path_ = std::move(path); }
  /// Number of the only rate at which a supplemental channel is traced; 0 or less for any rate. The database
  /// takes a change of them only while one of the two is above 0.
  std::int16_t ForwardRateRestriction() const { return forwardRate_; }
  void SetForwardRateRestriction(std::int16_t rate) { forwardRate_ = rate; }
  std::int16_t ReverseRateRestriction() const { return reverseRate_; }
  void SetReverseRateRestriction(std::int16_t rate) { reverseRate_ = rate; }

  /// Whether the study that GetData loaded traced cells.
  bool WasUsingCells() const { return wasUsingCells_; }

  /// Features of the switch of the ECP under study, as of the last look-up; never stored.
  const FafRow& Faf() const { return faf_; }
  void InitFaF() { faf_ = {}; }
  /// Looks the features of an instance up; false when the switch has none on record, and the row is empty
  /// then. Instance 0 is none and leaves the row as it was.
  bool LookupFAF(std::int32_t instanceId);

  /// The ECP or the cells of the study by key.
  const std::shared_ptr<EntityCollection>& Entities() const { return entities_; }
  void SetEntities(std::shared_ptr<EntityCollection> entities) { entities_ = std::move(entities); }
  /// Both raise error 457 for a second entity of the same instance.
  void AddEcp(std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId);
  void AddCell(std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId, std::int32_t cellId);

  /// The traced directory numbers by number.
  const std::shared_ptr<DnCollection>& DNs() const { return dns_; }
  void SetDNs(std::shared_ptr<DnCollection> dns) { dns_ = std::move(dns); }
  /// A DN that is there already keeps its data file.
  void AddDn(const std::string& dn, const std::string& dataFile);

  /// Sets every stored field of the study's own row at once.
  void Initialize(std::int32_t id, std::string tag, std::string clearLog, std::string multipleDns,
                  std::string useEcp, std::string path, std::int16_t forwardRateRestriction,
                  std::int16_t reverseRateRestriction);

  std::string_view KindName() const override;
  /// Loads the row, which may be missing, and the lists. A failing load of the row is reported; the lists
  /// raise their failures.
  void GetData(std::int32_t id) override;
  bool InsertNew() override;
  /// Failing deletes are raised, failing rows are reported.
  void Update() override;
  std::vector<NamedValue> StoredFields() const override;
  /// The entities, and the DNs with their data files.
  std::vector<StoredList> StoredLists() const override;
  std::vector<ListIdentity> ListIdentities() const override;
  std::vector<RecordFault> Faults() const override;
  void ReadStored(StoredReader& reader) override;

  /// The table with a row for each of these studies.
  static constexpr std::string_view kTable = "KIV_RfcStudy";
  /// The columns of it in the order of the insert.
  static std::span<const RecordField<CKivRfcData>> Fields();

 private:
  bool UsesEcp() const;
  bool InsertLists() const;

  std::string tag_;
  std::string dbm_ = "Y";  // always; the switch wants to find it so
  std::string clearLog_;
  std::string multipleDns_;
  std::string useEcp_;
  std::string path_;
  std::int16_t forwardRate_ = 0;
  std::int16_t reverseRate_ = 0;
  bool wasUsingCells_ = false;
  FafRow faf_;
  std::shared_ptr<DnCollection> dns_ = std::make_shared<DnCollection>();
  std::shared_ptr<EntityCollection> entities_ = std::make_shared<EntityCollection>();
};

}  // namespace kiv
