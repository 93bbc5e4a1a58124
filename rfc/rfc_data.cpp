#include "rfc/rfc_data.h"

#include <array>

#include "base/utf16.h"
#include "core/entity_lists.h"
#include "core/kiv_study_ctls.h"
#include "core/stored_reader.h"
#include "core/study_data.h"
#include "core/study_kinds.h"
#include "rfc/rfc_msql.h"

namespace kiv {

namespace {

constexpr std::string_view kEcps = "Ecps";
constexpr std::string_view kCellList = "Cells";
constexpr std::string_view kDns = "DNs";
constexpr std::string_view kDnIdentity[] = {"Dn"};

}  // namespace

bool IsTagCharacter(char16_t character) {
  constexpr std::u16string_view kAlsoInTags = u"._";
  return kAlsoInTags.find(character) != std::u16string_view::npos ||
         MKivStudyCtls::IsAlphaNumeric(ToUtf8({&character, 1}));
}

std::span<const RecordField<CKivRfcData>> CKivRfcData::Fields() {
  using enum FieldRole;
  using Data = CKivRfcData;
  using Field = RecordField<Data>;
  const FieldRule rate = Between(0, kSupplementalRates);  // 0 for any
  static const Field fields[] = {
      {"Id", &Data::id_, Key},
      Field{"Tag", &Data::tag_}.Allowing(MadeOf(IsTagCharacter, "letters, digits, '.' and '_'")),
      {"dBm", &Data::dbm_, InsertOnly},
      Field{"ClearLog", &Data::clearLog_}.Allowing(YesOrNo()),
      Field{"MultipleDns", &Data::multipleDns_}.Allowing(YesOrNo()),
      Field{"UseEcp", &Data::useEcp_}.Allowing(YesOrNo()),
      {"Path", &Data::path_},
      Field{"F", &Data::forwardRate_, WhenPositive}.Allowing(rate),
      Field{"R", &Data::reverseRate_, WhenPositive}.Allowing(rate),
  };
  return fields;
}

void CKivRfcData::Initialize(std::int32_t id, std::string tag, std::string clearLog, std::string multipleDns,
                             std::string useEcp, std::string path, std::int16_t forwardRateRestriction,
                             std::int16_t reverseRateRestriction) {
  SetFields(*this, Fields(),
            std::array<Variant, 8>{id, std::move(tag), std::move(clearLog), std::move(multipleDns),
                                   std::move(useEcp), std::move(path), forwardRateRestriction,
                                   reverseRateRestriction});
}

bool CKivRfcData::LookupFAF(std::int32_t instanceId) {
  return instanceId != 0 && MSQL::LookupFaf(instanceId, faf_);
}

void CKivRfcData::AddEcp(std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId) {
  Required(entities_).Add(MakeEcp(id_, instanceId, systemId, ecpId));
}

void CKivRfcData::AddCell(std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                          std::int32_t cellId) {
  Required(entities_).Add(MakeCell(id_, instanceId, systemId, ecpId, cellId));
}

void CKivRfcData::AddDn(const std::string& dn, const std::string& dataFile) {
  DnCollection& dns = Required(dns_);
  if (dns.Contains(dn)) return;
  auto entry = std::make_shared<CDn>();
  entry->SetID(id_);
  entry->SetDn(dn);
  entry->SetDataFile(dataFile);
  entry->SetKey(dn);
  dns.Add(std::move(entry));
}

std::string_view CKivRfcData::KindName() const {
  return kRfcStudy;
}

bool CKivRfcData::UsesEcp() const {
  return useEcp_ == "Y";
}

void CKivRfcData::GetData(std::int32_t id) {
  MSQL::LoadRfcData(id, *this);
  if (UsesEcp()) {
    MSQL::LoadRfcEcpList(id, *this);
  } else {
    MSQL::LoadRfcCellList(id, *this);
    wasUsingCells_ = true;
  }
  MSQL::LoadRfcDnList(id, *this);
}

bool CKivRfcData::InsertNew() {
  const bool rowWritten = MSQL::InsertRfcData(*this);
  const bool listsWritten = InsertLists();
  return rowWritten && listsWritten;
}

void CKivRfcData::Update() {
  MSQL::UpdateRfcData(*this);
  MSQL::DeleteEcpList(id_);
  MSQL::DeleteCellList(id_);
  MSQL::DeleteRfcDnList(id_);
  InsertLists();
}

bool CKivRfcData::InsertLists() const {
  bool written = true;
  for (const auto& entity : Required(entities_)) {
    if (UsesEcp()) {
      const CEcp& ecp = AsEcp(entity);
      written &= MSQL::InsertEcpRow(id_, ecp.InstanceID(), ecp.SystemID(), ecp.EcpID());
    } else {
      const CCell& cell = AsCell(entity);
      written &= MSQL::InsertCellRow(id_, cell.InstanceID(), cell.SystemID(), cell.EcpID(), cell.CellID());
    }
  }
  for (const auto& dn : Required(dns_)) written &= MSQL::InsertRfcDn(id_, *dn);
  return written;
}

std::vector<RecordFault> CKivRfcData::Faults() const {
  std::vector<RecordFault> faults;
  AddFaults(faults, *this, Fields());
  return faults;
}

std::vector<NamedValue> CKivRfcData::StoredFields() const {
  return ListFields(*this, Fields());
}

std::vector<StoredList> CKivRfcData::StoredLists() const {
  StoredList entities = UsesEcp() ? MSQL::StoredEcps(kEcps, Required(entities_))
                                  : MSQL::StoredCells(kCellList, Required(entities_), MSQL::CellParts::None);
  StoredList dns{kDns, {}};
  for (const auto& dn : Required(dns_)) dns.entries.push_back({{}, ListFields(*dn, CDn::Fields()), {}});
  return {std::move(entities), std::move(dns)};
}

std::vector<ListIdentity> CKivRfcData::ListIdentities() const {
  return {MSQL::EcpIdentity(kEcps), MSQL::CellIdentity(kCellList), {kDns, kDnIdentity}};
}

void CKivRfcData::ReadStored(StoredReader& reader) {
  reader.Fields(*this, Fields());
  if (UsesEcp()) {
    MSQL::ReadEcps(reader, kEcps, id_, Required(entities_));
  } else {
    MSQL::ReadCells(reader, kCellList, id_, Required(entities_), MSQL::CellParts::None);
  }
  reader.List(kDns, [this](StoredReader& entry) {
    CDn dn;
    entry.Fields(dn, CDn::Fields());
    AddDn(dn.Dn(), dn.DataFile());
    return dns_->Count();
  });
}

std::shared_ptr<CKivRfcData> CKivStudyData::RfcData() const {
  return SubRecordAs<CKivRfcData>();
}
void CKivStudyData::SetRfcData(std::shared_ptr<CKivRfcData> data) {
  SetSubRecordAs(std::move(data));
}

}  // namespace kiv
