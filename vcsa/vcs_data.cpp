#include "vcsa/vcs_data.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "core/entity_lists.h"
#include "core/stored_reader.h"
#include "core/study_data.h"
#include "core/study_kinds.h"
#include "core/study_row.h"

namespace kiv {

namespace {

constexpr std::string_view kCells = "Cells";

}  // namespace

std::string_view CKivVcsData::EventField(std::size_t category) {
  static constexpr std::array<std::string_view, kEventCategories> names = {
      "EventA", "EventB", "EventC", "EventD", "EventE", "EventF", "EventG",
      "EventH", "EventI", "EventJ", "EventK", "EventL", "EventM"};
  return names.at(category);
}

std::span<const RecordField<CKivVcsData>> CKivVcsData::Fields() {
  using Data = CKivVcsData;
  using Field = RecordField<Data>;
  static const auto fields = [] {
    std::vector<Field> all;
    all.push_back(Field{"ID", &Data::id_, FieldRole::Key});
    all.push_back(Field{"Path", &Data::path_});
    all.push_back(Field{"DataFile", &Data::dataFile_});
    for (std::size_t category = 0; category < kEventCategories; ++category) {
      all.push_back(
          Field{EventField(category), TextElement<Data>::Of(&Data::events_, category)}.Allowing(YesOrNo()));
    }
    all.push_back(Field{"SingleDn", &Data::singleDn_});
    all.push_back(Field{"DirectionalSetup", &Data::directionalSetup_}.Allowing(YesOrNo()));
    all.push_back(Field{"CarrierData", &Data::carrierData_}.Allowing(YesOrNo()));
    return all;
  }();
  return fields;
}

void CKivVcsData::Initialize(std::int32_t id, std::array<std::string, kTexts> texts) {
  std::vector<Variant> values = {id};
  values.insert(values.end(), std::make_move_iterator(texts.begin()), std::make_move_iterator(texts.end()));
  SetFields(*this, Fields(), values);
}

void CKivVcsData::AddCell(std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                          std::int32_t cellId) {
  Required(cells_).Add(MakeCell(id_, instanceId, systemId, ecpId, cellId));
}

void CKivVcsData::LookupAntenna(CCell& cell) const {
  MSQL::LookupConfigAntennas(cell);
}

void CKivVcsData::LookupCarrier(CCell& cell) const {
  MSQL::LookupConfigCarriers(cell);
}

std::string_view CKivVcsData::KindName() const {
  return kVcsStudy;
}

void CKivVcsData::GetData(std::int32_t id) {
  MSQL::LoadVcsData(id, *this);
  MSQL::LoadVcsCellList(id, *this);
  MSQL::LoadAntennaList(id, Required(cells_));
  MSQL::LoadCarrierList(id, Required(cells_));
}

bool CKivVcsData::InsertNew() {
  const bool rowWritten = MSQL::InsertVcsData(*this);
  const bool cellsWritten = InsertCells();
  return rowWritten && cellsWritten;
}

void CKivVcsData::Update() {
  MSQL::UpdateVcsData(*this);
  MSQL::DeleteCellList(id_);
  InsertCells();
}

bool CKivVcsData::InsertCells() const {
  bool written = true;
  for (const auto& entity : Required(cells_)) {
    const CCell& cell = AsCell(entity);
    written &= MSQL::InsertCellRow(id_, cell.InstanceID(), cell.SystemID(), cell.EcpID(), cell.CellID());
    written &= cell.InsertAntennas(id_);
    written &= cell.InsertCarriers(id_);
  }
  return written;
}

std::vector<StoredList> CKivVcsData::StoredLists() const {
  std::vector<StoredList> lists;  // not from a list in braces, which would copy thousands of entries
  lists.push_back(MSQL::StoredCells(kCells, Required(cells_), MSQL::CellParts::AntennasAndCarriers));
  return lists;
}

std::vector<NamedValue> CKivVcsData::StoredFields() const {
  return ListFields(*this, Fields());
}

std::vector<RecordFault> CKivVcsData::Faults() const {
  std::vector<RecordFault> faults;
  AddFaults(faults, *this, Fields());
  return faults;
}

std::vector<ListIdentity> CKivVcsData::ListIdentities() const {
  return {MSQL::CellIdentity(kCells), MSQL::AntennaIdentity(), MSQL::CarrierIdentity()};
}

void CKivVcsData::ReadStored(StoredReader& reader) {
  reader.Fields(*this, Fields());
  MSQL::ReadCells(reader, kCells, id_, Required(cells_), MSQL::CellParts::AntennasAndCarriers);
}

std::shared_ptr<CKivVcsData> CKivStudyData::VcsData() const {
  return SubRecordAs<CKivVcsData>();
}
void CKivStudyData::SetVcsData(std::shared_ptr<CKivVcsData> data) {
  SetSubRecordAs(std::move(data));
}

namespace MSQL {

namespace {

constexpr StudyTable kTable = {kVcsStudy, CKivVcsData::kTable};

}  // namespace

void LoadVcsData(std::int32_t id, CKivVcsData& record) {
  LoadStudyRow(kTable, "LoadVcsData", id, record);
}

bool InsertVcsData(const CKivVcsData& record) {
  return InsertStudyRow(kTable, "InsertVcsData", record);
}

bool UpdateVcsData(const CKivVcsData& record) {
  return UpdateStudyRow(kTable, "UpdateVcsData", record);
}

void LoadVcsCellList(std::int32_t listId, CKivVcsData& record) {
  LoadCellList(listId, std::bind_front(&CKivVcsData::AddCell, &record));
}

}  // namespace MSQL

}  // namespace kiv
