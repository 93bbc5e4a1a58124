#include "core/study_data.h"

#include <gtest/gtest.h>

#include "core/study_kinds.h"
#include "editor/study_tabs.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

constexpr const char* kNotedStudy = "Noted Study";

/// A sub-record of a kind of the host's own that writes down what it is asked to do.
class NotedRecord : public ISubRecord {
 public:
  static inline std::vector<std::string> notes;

  std::string_view KindName() const override { return kNotedStudy; }
  std::int32_t ID() const override { return id_; }
  void SetID(std::int32_t id) override { id_ = id; }
  bool IsNew() const override { return false; }
  void SetIsNew(bool) override {}
  void GetData(std::int32_t id) override { notes.push_back("load " + std::to_string(id)); }
  bool InsertNew() override {
    notes.push_back("insert " + std::to_string(id_));
    return false;
  }
  void Update() override { notes.push_back("update " + std::to_string(id_)); }
  std::vector<NamedValue> StoredFields() const override { return {}; }
  void ReadStored(StoredReader&) override {}

 private:
  std::int32_t id_ = 0;
};

class StudyRecord : public ::testing::Test {
 protected:
  StudyRecord() {
    NotedRecord::notes.clear();
    RegisterStudyKind({.name = kNotedStudy,
                       .editorName = "Noted",
                       .table = {},
                       .createRecord = [] { return std::make_shared<NotedRecord>(); },
                       .tabs = {},
                       .badge = {}});
  }

  std::shared_ptr<host::DocumentType> studyType_ = std::make_shared<host::DocumentType>();
  std::shared_ptr<host::DocumentType> scenarioType_ = std::make_shared<host::DocumentType>();
  CKivStudyData study_;
};

TEST_F(StudyRecord, StartsWithNothingGiven) {
  EXPECT_EQ(study_.ScenarioID(), -1);
  EXPECT_EQ(study_.Duration(), -1);
  EXPECT_EQ(study_.PollingInterval(), -1);
  EXPECT_EQ(study_.RetrieveDelay(), -1);
  EXPECT_EQ(study_.ID(), 0);
  EXPECT_FALSE(study_.IsNew());
  EXPECT_EQ(study_.SubRecord(), nullptr);
  EXPECT_NE(study_.StudyType(), nullptr);
  EXPECT_NE(study_.ScenarioType(), study_.StudyType());
}

TEST_F(StudyRecord, NewStudyIsInsertedUnderTheIdItHasThen) {
  study_.InitNew(kNotedStudy, "Noted", studyType_, scenarioType_, 0);
  EXPECT_TRUE(study_.IsNew());
  EXPECT_EQ(study_.StudyType(), studyType_);
  EXPECT_EQ(study_.ScenarioType(), scenarioType_);
  EXPECT_EQ(study_.Duration(), -1);
  study_.SetID(41);
  EXPECT_EQ(&study_.SaveSubTableData(), &study_);
  study_.SetID(42);
  study_.SaveSubTableData();  // still new: inserts again
  EXPECT_EQ(NotedRecord::notes, (std::vector<std::string>{"insert 41", "insert 42"}));
}

TEST_F(StudyRecord, StoredStudyIsLoadedAndUpdated) {
  study_.InitEdit(kNotedStudy, "Noted", studyType_, scenarioType_, 5, Variant("7"), Variant(30), Variant(-1),
                  Variant(2.0));
  EXPECT_FALSE(study_.IsNew());
  EXPECT_EQ(study_.ScenarioID(), 7);
  EXPECT_EQ(study_.Duration(), 30);
  EXPECT_EQ(study_.RetrieveDelay(), 2);
  study_.SaveSubTableData();
  EXPECT_EQ(NotedRecord::notes, (std::vector<std::string>{"load 5", "update 5"}));
}

TEST_F(StudyRecord, AnAttributeThatIsNoNumberReachesTheCaller) {
  const auto edit = [this](const Variant& duration) {
    study_.InitEdit(kNotedStudy, "Noted", studyType_, scenarioType_, 5, Variant(1), duration, Variant(1),
                    Variant(1));
  };
  EXPECT_THROW(edit(Variant()), Error);
  EXPECT_THROW(edit(Variant("half an hour")), Error);
  EXPECT_TRUE(NotedRecord::notes.empty());
}

TEST_F(StudyRecord, KindNamesAreExact) {
  study_.InitEdit("noted study", "", studyType_, scenarioType_, 5, Variant(1), Variant(1), Variant(1),
                  Variant(1));
  EXPECT_EQ(study_.SubRecord(), nullptr);
  EXPECT_FALSE(study_.IsNew());
  study_.SaveSubTableData();
  EXPECT_TRUE(NotedRecord::notes.empty());
}

TEST_F(StudyRecord, SavingWithoutTheKindsRecordIsAnError) {
  study_.InitNew(kNotedStudy, "Noted", studyType_, scenarioType_, 0);
  study_.SetAppName("HOM Study");
  EXPECT_THROW(study_.SaveSubTableData(), Error);
}

TEST_F(StudyRecord, KindsAreKnownWithoutACallAndTheHostsOwnComeAfterThem) {
  std::vector<std::string> names;
  for (const StudyKind& kind : StudyKinds()) {
    names.push_back(kind.name);
    const auto record = kind.createRecord();
    EXPECT_EQ(record->KindName(), kind.name);
    const std::vector<std::unique_ptr<Tab>> tabs = CreateTabs(kind);
    EXPECT_EQ(tabs.empty(), kind.name == kNotedStudy);
    for (std::size_t i = 0; i < tabs.size(); ++i) EXPECT_EQ(tabs[i]->Name(), kind.tabs[i].className);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"HOM Study", "PLM Study", "RF Call Trace Study", "VCSA Study",
                                             kNotedStudy}));
}

}  // namespace
}  // namespace kiv
