#include "core/study_data.h"

#include <utility>

#include "base/error.h"
#include "core/conversions.h"
#include "core/study_kinds.h"
#include "host/services.h"

namespace kiv {

namespace {

/// One that the host makes, so that it can take it back; a record that is made without a host has to do with
/// an empty one.
std::shared_ptr<host::DocumentType> FreshDocumentType() {
  const auto& documents = host::CurrentServices().documents;
  return documents ? documents->NewDocumentType() : std::make_shared<host::DocumentType>();
}

}  // namespace

CKivStudyData::CKivStudyData() : studyType_(FreshDocumentType()), scenarioType_(FreshDocumentType()) {}

CKivStudyData::~CKivStudyData() {
  subRecord_.reset();
  studyType_.reset();
  scenarioType_.reset();
}

void CKivStudyData::InitNew(const std::string& appName, const std::string& editorName,
                            std::shared_ptr<host::DocumentType> studyType,
                            std::shared_ptr<host::DocumentType> scenarioType, std::int32_t id) {
  TakeNames(appName, editorName, std::move(studyType), std::move(scenarioType), id);
  CreateSubRecord();
  isNew_ = true;
}

void CKivStudyData::InitEdit(const std::string& appName, const std::string& editorName,
                             std::shared_ptr<host::DocumentType> studyType,
                             std::shared_ptr<host::DocumentType> scenarioType, std::int32_t id,
                             const Variant& scenarioId, const Variant& duration,
                             const Variant& pollingInterval, const Variant& retrieveDelay) {
  TakeNames(appName, editorName, std::move(studyType), std::move(scenarioType), id);
  scenarioId_ = ToInt32(scenarioId);
  duration_ = ToInt32(duration);
  pollingInterval_ = ToInt32(pollingInterval);
  retrieveDelay_ = ToInt32(retrieveDelay);
  CreateSubRecord();
  if (subRecord_) subRecord_->GetData(id_);
  isNew_ = false;
}

CKivStudyData& CKivStudyData::SaveSubTableData() {
  if (!FindStudyKind(appName_)) return *this;
  if (!subRecord_ || subRecord_->KindName() != appName_) {
    throw Error(ErrorNumber::ObjectNotSet, "The study has no data of the kind " + appName_ + ".");
  }
  subRecord_->SetID(id_);
  if (isNew_) {
    subRecord_->InsertNew();
  } else {
    subRecord_->Update();
  }
  return *this;
}

void CKivStudyData::TakeNames(const std::string& appName, const std::string& editorName,
                              std::shared_ptr<host::DocumentType> studyType,
                              std::shared_ptr<host::DocumentType> scenarioType, std::int32_t id) {
  appName_ = appName;
  editorName_ = editorName;
  studyType_ = std::move(studyType);
  scenarioType_ = std::move(scenarioType);
  id_ = id;
}

void CKivStudyData::CreateSubRecord() {
  const StudyKind* kind = FindStudyKind(appName_);
  subRecord_ = kind ? kind->createRecord() : nullptr;
  if (subRecord_) subRecord_->SetAppName(appName_);
}

}  // namespace kiv
