#include "hom/hom_data.h"

#include <array>
#include <utility>

#include "core/conversions.h"
#include "core/stored_reader.h"
#include "core/study_data.h"
#include "core/study_kinds.h"
#include "core/study_row.h"

namespace kiv {

std::span<const RecordField<CKivHomData>> CKivHomData::Fields() {
  using enum FieldRole;
  using Data = CKivHomData;
  static const RecordField<Data> fields[] = {
      {"Id", &Data::id_, Key},
      {"Path", &Data::path_},
      {"DataFile", &Data::dataFile_},
      {"HomMode", &Data::homMode_},
      {"ToAmps", &Data::toAmps_},
      {"FromAmps", &Data::fromAmps_},
      {"ToTdmaAmps", &Data::toTdmaAmps_},
      {"ToTdma", &Data::toTdma_},
      {"SemiSoft", &Data::semiSoft_},
      {"Hard", &Data::hard_},
      {"ToCdmaAmps", &Data::toCdmaAmps_},
      {"SemiSoftPrimary", &Data::semiSoftPrimary_},
      {"SoftPrimary", &Data::softPrimary_},
      {"SoftAdd", &Data::softAdd_},
      {"SoftDrop", &Data::softDrop_},
      {"CollectData", &Data::collectData_, Optional, "N"},
      {"StartOnFail", &Data::startOnFail_, Optional, "N"},
      {"CurStdDatafile", &Data::curStdDatafile_, Optional},
      {"CurStdPath", &Data::curStdPath_, Optional},
  };
  return fields;
}

void CKivHomData::Initialize(std::int32_t id, std::string path, std::string dataFile, std::int32_t homMode,
                             std::string toAmps, std::string fromAmps, std::string toTdmaAmps,
                             std::string toTdma, std::string semiSoft, std::string hard,
                             std::string toCdmaAmps, std::string semiSoftPrimary, std::string softPrimary,
                             std::string softAdd, std::string softDrop, std::string collectData,
                             std::string startOnFail, std::string curStdDatafile, const Variant& curStdPath) {
  SetFields(*this, Fields(),
            std::array<Variant, 19>{id, std::move(path), std::move(dataFile), homMode, std::move(toAmps),
                                    std::move(fromAmps), std::move(toTdmaAmps), std::move(toTdma),
                                    std::move(semiSoft), std::move(hard), std::move(toCdmaAmps),
                                    std::move(semiSoftPrimary), std::move(softPrimary), std::move(softAdd),
                                    std::move(softDrop), std::move(collectData), std::move(startOnFail),
                                    std::move(curStdDatafile), curStdPath});
}

std::string_view CKivHomData::KindName() const {
  return kHomStudy;
}
void CKivHomData::GetData(std::int32_t id) {
  MSQL::LoadHomData(id, *this);
}
bool CKivHomData::InsertNew() {
  return MSQL::InsertHomData(*this);
}
void CKivHomData::Update() {
  MSQL::UpdateHomData(*this);
}
std::vector<NamedValue> CKivHomData::StoredFields() const {
  return ListFields(*this, Fields());
}

void CKivHomData::ReadStored(StoredReader& reader) {
  reader.Fields(*this, Fields());
}

std::shared_ptr<CKivHomData> CKivStudyData::HomData() const {
  return SubRecordAs<CKivHomData>();
}
void CKivStudyData::SetHomData(std::shared_ptr<CKivHomData> data) {
  SetSubRecordAs(std::move(data));
}

namespace MSQL {

namespace {

constexpr StudyTable kTable = {kHomStudy, CKivHomData::kTable};

}  // namespace

void LoadHomData(std::int32_t id, CKivHomData& record) {
  LoadStudyRow(kTable, "LoadHomData", id, record);
}

bool InsertHomData(const CKivHomData& record) {
  return InsertStudyRow(kTable, "InsertHomData", record);
}

bool UpdateHomData(const CKivHomData& record) {
  return UpdateStudyRow(kTable, "UpdateHomData", record);
}

}  // namespace MSQL

}  // namespace kiv
