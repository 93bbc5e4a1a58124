#include "core/study_data.h"

#include <gmock/gmock.h>

#include "core/study_kinds.h"
#include "editor/study_tabs.h"
#include "hom/hom_data.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class StudyRecord : public ::testing::Test {
 protected:
  void New() { study_.InitNew("HOM Study", "HOM", studyType_, scenarioType_, 0); }
  void Edit(const std::string& kind, const Variant& duration) {
    study_.InitEdit(kind, "HOM", studyType_, scenarioType_, 5, Variant("7"), duration, Variant(-1),
                    Variant(2.0));
  }

  test::FakeHost host_;
  std::shared_ptr<host::DocumentType> studyType_ = std::make_shared<host::DocumentType>();
  std::shared_ptr<host::DocumentType> scenarioType_ = std::make_shared<host::DocumentType>();
  CKivStudyData study_;
};

TEST_F(StudyRecord, NewStudyIsInsertedUnderTheIdItHasThen) {
  EXPECT_TRUE(host_.documents->Made(*study_.StudyType()) && host_.documents->Made(*study_.ScenarioType()));
  New();
  EXPECT_EQ(study_.HomData()->AppName(), "HOM Study");
  EXPECT_TRUE(study_.IsNew());
  EXPECT_EQ(study_.StudyType(), studyType_);
  EXPECT_EQ(study_.ScenarioType(), scenarioType_);
  for (const std::int32_t number :
       {study_.ScenarioID(), study_.Duration(), study_.PollingInterval(), study_.RetrieveDelay()}) {
    EXPECT_EQ(number, -1);
  }
  study_.SetID(41);
  EXPECT_EQ(&study_.SaveSubTableData(), &study_);
  study_.SetID(42);
  study_.SaveSubTableData();  // still new: inserts again
  EXPECT_THAT(host_.database->statements, ElementsAre(HasSubstr("VALUES (41, "), HasSubstr("VALUES (42, ")));
  study_.SetAppName("PLM Study");
  EXPECT_THROW(study_.SaveSubTableData(), Error) << "its record is of another kind";
  study_.SetAppName("HOM Study");
  study_.SetHomData(nullptr);
  EXPECT_THROW(study_.SaveSubTableData(), Error);
}

TEST_F(StudyRecord, StoredStudyIsLoadedAndUpdated) {
  Edit("HOM Study", Variant(30));
  EXPECT_EQ(study_.HomData()->AppName(), "HOM Study");
  EXPECT_FALSE(study_.IsNew());
  EXPECT_EQ(study_.ScenarioID(), 7);
  EXPECT_EQ(study_.Duration(), 30);
  EXPECT_EQ(study_.RetrieveDelay(), 2);
  study_.SaveSubTableData();
  EXPECT_THAT(host_.database->queries, ElementsAre("SELECT * FROM KIV_HomStudy WHERE Id = 5"));
  EXPECT_THAT(host_.database->statements, ElementsAre(EndsWith(" WHERE Id = 5")));
}

TEST_F(StudyRecord, ReadsNothingForWrongNumbersAndUnknownKinds) {
  EXPECT_THROW(Edit("HOM Study", Variant()), Error);
  EXPECT_THROW(Edit("HOM Study", Variant("half an hour")), Error);
  Edit("hom study", Variant(1));  // names are exact
  EXPECT_EQ(study_.SubRecord(), nullptr);
  study_.SaveSubTableData();
  EXPECT_THAT(host_.database->queries, IsEmpty());
  EXPECT_THAT(host_.database->statements, IsEmpty());
}

TEST_F(StudyRecord, KindsAreKnownWithoutACallAndTheHostsOwnComeAfterThem) {
  RegisterStudyKind({.name = "Noted Study",
                     .editorName = "Noted",
                     .table = {},
                     .createRecord = [] { return std::make_shared<CKivHomData>(); },
                     .tabs = {},
                     .badge = {}});
  std::vector<std::string> names;
  for (const StudyKind& kind : StudyKinds()) {
    names.push_back(kind.name);
    const std::vector<std::unique_ptr<Tab>> tabs = CreateTabs(kind);
    EXPECT_EQ(tabs.empty(), kind.name == "Noted Study");
    for (std::size_t i = 0; i < tabs.size(); ++i) EXPECT_EQ(tabs[i]->Name(), kind.tabs[i].className);
  }
  EXPECT_THAT(names,
              ElementsAre("HOM Study", "PLM Study", "RF Call Trace Study", "VCSA Study", "Noted Study"));
}

}  // namespace
}  // namespace kiv
