#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/sub_record.h"
#include "host/documents.h"

namespace kiv {

class CKivHomData;
class CKivPlmData;
class CKivRfcData;
class CKivVcsData;

/// The one object that a study editor works on: what every study has, and the sub-record of its kind.
///
/// It reads and writes no table itself. The host stores the shared attributes, sets `ID` and calls
/// SaveSubTableData, which lets the sub-record write its own.
class CKivStudyData : public Object {
 public:
  /// Value of a numeric attribute that was not given.
  static constexpr std::int32_t kNotGiven = -1;

  /// Asks the host for fresh types of documents.
  CKivStudyData();
  CKivStudyData(const CKivStudyData&) = delete;
  CKivStudyData& operator=(const CKivStudyData&) = delete;
  ~CKivStudyData() override;

  /// Starts a new study of the kind that `appName` names, with an empty sub-record. A name that is no study
  /// kind gets none.
  void InitNew(const std::string& appName, const std::string& editorName,
               std::shared_ptr<host::DocumentType> studyType,
               std::shared_ptr<host::DocumentType> scenarioType, std::int32_t id);

  /// Takes up a stored study and loads its sub-record. Raises error 13 or 6 for a number that is none or too
  /// large, before anything is read.
  void InitEdit(const std::string& appName, const std::string& editorName,
                std::shared_ptr<host::DocumentType> studyType,
                std::shared_ptr<host::DocumentType> scenarioType, std::int32_t id, const Variant& scenarioId,
                const Variant& duration, const Variant& pollingInterval, const Variant& retrieveDelay);

  /// Writes the sub-record: inserts while the study is new, updates otherwise. Raises error 91 when the kind
  /// has no sub-record here.
  CKivStudyData& SaveSubTableData();

  const std::string& AppName() const { return appName_; }
  void SetAppName(std::string appName) { appName_ = std::move(appName); }
  const std::string& EditorName() const { return editorName_; }
  void SetEditorName(std::string editorName) { editorName_ = std::move(editorName); }
  std::int32_t ID() const { return id_; }
  void SetID(std::int32_t id) { id_ = id; }
  /// True from InitNew until the host says otherwise.
  bool IsNew() const { return isNew_; }
  void SetIsNew(bool isNew) { isNew_ = isNew; }
  std::int32_t ScenarioID() const { return scenarioId_; }
  void SetScenarioID(std::int32_t scenarioId) { scenarioId_ = scenarioId; }
  /// Minutes.
  std::int32_t Duration() const { return duration_; }
  void SetDuration(std::int32_t duration) { duration_ = duration; }
  /// Seconds.
  std::int32_t PollingInterval() const { return pollingInterval_; }
  void SetPollingInterval(std::int32_t pollingInterval) { pollingInterval_ = pollingInterval; }
  /// Minutes.
  std::int32_t RetrieveDelay() const { return retrieveDelay_; }
  void SetRetrieveDelay(std::int32_t retrieveDelay) { retrieveDelay_ = retrieveDelay; }

  const std::shared_ptr<host::DocumentType>& StudyType() const { return studyType_; }
  const std::shared_ptr<host::DocumentType>& ScenarioType() const { return scenarioType_; }
  void SetScenarioType(std::shared_ptr<host::DocumentType> type) { scenarioType_ = std::move(type); }

  /// The typed sub-records, each defined by the library of its kind; null when the study is of another kind.
  /// A study has one sub-record at most: setting one takes the place of any other.
  std::shared_ptr<CKivHomData> HomData() const;
  void SetHomData(std::shared_ptr<CKivHomData> data);
  std::shared_ptr<CKivPlmData> PlmData() const;
  void SetPlmData(std::shared_ptr<CKivPlmData> data);
  std::shared_ptr<CKivRfcData> RfcData() const;
  void SetRfcData(std::shared_ptr<CKivRfcData> data);
  std::shared_ptr<CKivVcsData> VcsData() const;
  void SetVcsData(std::shared_ptr<CKivVcsData> data);

  const std::shared_ptr<ISubRecord>& SubRecord() const { return subRecord_; }

  /// The sub-record as its own class; null when it is of another kind or not set.
  template <class Data>
  std::shared_ptr<Data> SubRecordAs() const {
    return std::dynamic_pointer_cast<Data>(subRecord_);
  }
  /// Unsetting one kind leaves a sub-record of another kind alone.
  template <class Data>
  void SetSubRecordAs(std::shared_ptr<Data> data) {
    if (data || SubRecordAs<Data>()) subRecord_ = std::move(data);
  }

 private:
  void TakeNames(const std::string& appName, const std::string& editorName,
                 std::shared_ptr<host::DocumentType> studyType,
                 std::shared_ptr<host::DocumentType> scenarioType, std::int32_t id);
  void CreateSubRecord();

  std::string appName_;
  std::string editorName_;
  std::int32_t id_ = 0;
  bool isNew_ = false;
  std::int32_t scenarioId_ = kNotGiven;
  std::int32_t duration_ = kNotGiven;
  std::int32_t pollingInterval_ = kNotGiven;
  std::int32_t retrieveDelay_ = kNotGiven;
  std::shared_ptr<ISubRecord> subRecord_;
  std::shared_ptr<host::DocumentType> studyType_;
  std::shared_ptr<host::DocumentType> scenarioType_;
};

}  // namespace kiv
