#include "hom/hom_data.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/conversions.h"
#include "core/stored_reader.h"
#include "core/study_data.h"
#include "core/study_kinds.h"
#include "core/study_row.h"

namespace kiv {

namespace {

constexpr std::string_view kMode = "HomMode";
/// The handoff types of each technology.
constexpr std::string_view kTdmaTypes[] = {"FromAmps", "ToTdmaAmps", "ToTdma", "SemiSoft"};
constexpr std::string_view kCdmaTypes[] = {"Hard",        "ToCdmaAmps", "SemiSoftPrimary",
                                           "SoftPrimary", "SoftAdd",    "SoftDrop"};

}  // namespace

std::span<const RecordField<CKivHomData>> CKivHomData::Fields() {
  using enum FieldRole;
  using Data = CKivHomData;
  using Field = RecordField<Data>;
  const auto choice = [](std::string_view name, std::string Data::*member) {
    return Field{name, member}.Allowing(YesOrNo());
  };
  static const Field fields[] = {
      {"Id", &Data::id_, Key},
      {"Path", &Data::path_},
      {"DataFile", &Data::dataFile_},
      Field{kMode, &Data::homMode_}.Allowing(Between(hom_mode::kNormal, hom_mode::kCdmaHeat)),
      choice("ToAmps", &Data::toAmps_),
      choice(kTdmaTypes[0], &Data::fromAmps_),
      choice(kTdmaTypes[1], &Data::toTdmaAmps_),
      choice(kTdmaTypes[2], &Data::toTdma_),
      choice(kTdmaTypes[3], &Data::semiSoft_),
      choice(kCdmaTypes[0], &Data::hard_),
      choice(kCdmaTypes[1], &Data::toCdmaAmps_),
      choice(kCdmaTypes[2], &Data::semiSoftPrimary_),
      choice(kCdmaTypes[3], &Data::softPrimary_),
      choice(kCdmaTypes[4], &Data::softAdd_),
      choice(kCdmaTypes[5], &Data::softDrop_),
      Field{"CollectData", &Data::collectData_, Optional, "N"}.Allowing(YesOrNo()),
      Field{"StartOnFail", &Data::startOnFail_, Optional, "N"}.Allowing(YesOrNo()),
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

/// The page checks types of one technology only, and all of them in a heat mode.
std::vector<RecordFault> CKivHomData::Faults() const {
  std::vector<RecordFault> faults;
  AddFaults(faults, *this, Fields());
  const auto chosen = [this](std::span<const std::string_view> types) {
    return std::ranges::count_if(Fields(), [this, types](const RecordField<CKivHomData>& field) {
      return std::ranges::find(types, field.name) != types.end() && field.Get(*this) == Variant("Y");
    });
  };
  const auto tdma = chosen(kTdmaTypes);
  const auto cdma = chosen(kCdmaTypes);
  std::vector<std::string_view> types(std::begin(kTdmaTypes), std::end(kTdmaTypes));
  types.insert(types.end(), std::begin(kCdmaTypes), std::end(kCdmaTypes));
  if (tdma > 0 && cdma > 0) {
    faults.push_back({kMode, "TDMA and CDMA handoff types cannot be chosen together", 0, std::move(types)});
  } else if ((homMode_ == hom_mode::kTdmaHeat && tdma != std::ssize(kTdmaTypes)) ||
             (homMode_ == hom_mode::kCdmaHeat && cdma != std::ssize(kCdmaTypes))) {
    faults.push_back({kMode,
                      std::string(kMode) + " " + std::to_string(homMode_) +
                          " must have every handoff type of its technology and no other",
                      0, std::move(types)});
  }
  return faults;
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
