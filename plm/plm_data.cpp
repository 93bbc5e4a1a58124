#include "plm/plm_data.h"

#include <algorithm>
#include <array>

#include "core/stored_reader.h"
#include "core/study_data.h"
#include "core/study_kinds.h"
#include "plm/mode_names.h"
#include "plm/plm_msql.h"

namespace kiv {

namespace {

constexpr std::string_view kModeIdentity[] = {"PlmMode"};

}  // namespace

std::span<const RecordField<CKivPlmData>> CKivPlmData::Fields() {
  using Data = CKivPlmData;
  static const RecordField<Data> fields[] = {
      {"Id", &Data::id_, FieldRole::Key},
      {"Path", &Data::path_},
      {"DataFile", &Data::dataFile_},
      {"Tag", &Data::tag_},
  };
  return fields;
}

void CKivPlmData::Initialize(std::int32_t id, std::string path, std::string dataFile, std::string tag) {
  SetFields(*this, Fields(),
            std::array<Variant, 4>{id, std::move(path), std::move(dataFile), std::move(tag)});
}

void CKivPlmData::AddMode(const std::string& key, const std::shared_ptr<CKivPlmMode>& mode) {
  if (modes_->Contains(key)) return;
  Required(mode).SetKey(key);
  modes_->Add(mode, key);
}

std::shared_ptr<CKivPlmMode> CKivPlmData::ReturnMode(const std::string& key) const {
  return modes_->Contains(key) ? modes_->Item(key) : std::make_shared<CKivPlmMode>();
}

void CKivPlmData::RemoveMode(const std::string& key) {
  if (modes_->Contains(key)) modes_->Remove(key);
}

std::int32_t CKivPlmData::ModeCount() const {
  return static_cast<std::int32_t>(
      std::count_if(begin(), end(), [](const auto& mode) { return mode->Checked(); }));
}

std::string_view CKivPlmData::KindName() const {
  return kPlmStudy;
}

void CKivPlmData::GetData(std::int32_t id) {
  MSQL::LoadPlmData(id, *this);
  MSQL::LoadPlmModes(id, *this);
}

bool CKivPlmData::InsertNew() {
  MSQL::InsertPlmData(*this);
  for (const auto& mode : *this) {
    if (!mode->Checked()) continue;
    mode->SetID(id_);
    MSQL::InsertPlmMode(*mode);
    mode->InsertChannelList();
  }
  return true;
}

void CKivPlmData::Update() {
  MSQL::DeletePlmChannels(id_);
  MSQL::DeletePlmData(id_);
  InsertNew();
}

std::vector<NamedValue> CKivPlmData::StoredFields() const {
  return ListFields(*this, Fields());
}

std::vector<StoredList> CKivPlmData::StoredLists() const {
  StoredList modes{kModeList, {}};
  for (const auto& mode : *this) modes.entries.push_back(mode->Stored());
  return {std::move(modes)};
}

std::vector<StoredList> CKivPlmData::WrittenLists() const {
  StoredList modes{kModeList, {}};
  for (const auto& mode : *this) {
    if (mode->Checked()) modes.entries.push_back(mode->Stored());
  }
  return {std::move(modes)};
}

std::vector<ListIdentity> CKivPlmData::ListIdentities() const {
  return {{kModeList, kModeIdentity}};
}

std::vector<RecordFault> CKivPlmData::Faults() const {
  std::vector<RecordFault> faults;
  AddFaults(faults, *this, Fields());
  for (const auto& mode : *this) {
    for (const std::string& text : mode->Faults()) {
      faults.push_back({kModeList, mode->Key() + ": " + text, mode->PlmMode()});
    }
  }
  return faults;
}

void CKivPlmData::ReadStored(StoredReader& reader) {
  reader.Fields(*this, Fields());
  reader.List(kModeList, [this](StoredReader& entry) {
    const auto mode = std::make_shared<CKivPlmMode>();
    mode->ReadStored(entry);
    const std::string name = MKivStudyCtls::ModeName(mode->PlmMode());
    if (name.empty()) {
      entry.Note(kModeIdentity[0], "must be a number from 1 to " + std::to_string(MKivStudyCtls::kModeCount));
    } else {
      AddMode(name, mode);
    }
    return modes_->Count();
  });
}

std::shared_ptr<CKivPlmData> CKivStudyData::PlmData() const {
  return SubRecordAs<CKivPlmData>();
}
void CKivStudyData::SetPlmData(std::shared_ptr<CKivPlmData> data) {
  SetSubRecordAs(std::move(data));
}

}  // namespace kiv
