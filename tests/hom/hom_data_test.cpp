#include "hom/hom_data.h"

#include <gtest/gtest.h>

#include "core/study_data.h"
#include "core/study_kinds.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

constexpr const char* kSelect = "SELECT * FROM KIV_HomStudy WHERE Id = 12";

void Fill(CKivHomData& data) {
  data.Initialize(12, "/d/o'hare", "h$YY.hom", 1, "Y", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "Y",
                  "N", "c.hom", Variant("/omp"));
}

class HomRecord : public ::testing::Test {
 protected:
  void LackOptionalColumns() { host_.database->missingColumns = {"KIV_HOMSTUDY.COLLECTDATA"}; }

  test::FakeHost host_;
  CKivHomData data_;
};

TEST_F(HomRecord, InsertNamesEveryColumnOfTheDatabase) {
  Fill(data_);
  EXPECT_TRUE(data_.InsertNew());
  LackOptionalColumns();
  EXPECT_TRUE(data_.InsertNew());
  EXPECT_EQ(
      host_.database->statements,
      (std::vector<std::string>{
          "INSERT INTO KIV_HomStudy (Id, Path, DataFile, HomMode, ToAmps, FromAmps, ToTdmaAmps, ToTdma, "
          "SemiSoft, Hard, ToCdmaAmps, SemiSoftPrimary, SoftPrimary, SoftAdd, SoftDrop, CollectData, "
          "StartOnFail, CurStdDatafile, CurStdPath) VALUES (12, '/d/o''hare', 'h$YY.hom', 1, 'Y', 'N', 'Y', "
          "'N', 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y', 'Y', 'N', 'c.hom', '/omp')",
          "INSERT INTO KIV_HomStudy (Id, Path, DataFile, HomMode, ToAmps, FromAmps, ToTdmaAmps, ToTdma, "
          "SemiSoft, Hard, ToCdmaAmps, SemiSoftPrimary, SoftPrimary, SoftAdd, SoftDrop) VALUES (12, "
          "'/d/o''hare', 'h$YY.hom', 1, 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y')"}));
  EXPECT_EQ(host_.database->columnQuestions,
            (std::vector<std::string>{"KIV_HOMSTUDY.COLLECTDATA", "KIV_HOMSTUDY.COLLECTDATA"}));
}

TEST_F(HomRecord, UpdateAssignsEverythingButTheKey) {
  Fill(data_);
  data_.Update();
  LackOptionalColumns();
  data_.Update();
  EXPECT_EQ(
      host_.database->statements,
      (std::vector<std::string>{
          "UPDATE KIV_HomStudy SET Path = '/d/o''hare', DataFile = 'h$YY.hom', HomMode = 1, ToAmps = 'Y', "
          "FromAmps = 'N', ToTdmaAmps = 'Y', ToTdma = 'N', SemiSoft = 'Y', Hard = 'N', ToCdmaAmps = 'Y', "
          "SemiSoftPrimary = 'N', SoftPrimary = 'Y', SoftAdd = 'N', SoftDrop = 'Y', CollectData = 'Y', "
          "StartOnFail = 'N', CurStdDatafile = 'c.hom', CurStdPath = '/omp' WHERE Id = 12",
          "UPDATE KIV_HomStudy SET Path = '/d/o''hare', DataFile = 'h$YY.hom', HomMode = 1, ToAmps = 'Y', "
          "FromAmps = 'N', ToTdmaAmps = 'Y', ToTdma = 'N', SemiSoft = 'Y', Hard = 'N', ToCdmaAmps = 'Y', "
          "SemiSoftPrimary = 'N', SoftPrimary = 'Y', SoftAdd = 'N', SoftDrop = 'Y' WHERE Id = 12"}));
}

TEST_F(HomRecord, LoadReadsTheFirstRow) {
  test::FakeRows rows;
  for (const auto& field : CKivHomData::Fields()) {
    rows.names.push_back(sql::AsciiUpper(field.name));
  }
  rows.rows.push_back({12, "/d", Variant(), "2", "Y", "N", "N", "N", "N", "N", "N", "N", "N", "N", "Y", "Y",
                       "N", "c.hom", "/omp"});
  host_.database->answers[kSelect] = rows;
  data_.GetData(12);
  EXPECT_EQ(host_.database->queries, std::vector<std::string>{kSelect});
  EXPECT_EQ(host_.database->timeouts, std::vector<int>{60});
  EXPECT_EQ(data_.ID(), 12);
  EXPECT_EQ(data_.DataFile(), "");  // NULL
  EXPECT_EQ(data_.HomMode(), 2);
  EXPECT_EQ(data_.SoftDrop(), "Y");
  EXPECT_EQ(data_.CurStdPath(), "/omp");

  LackOptionalColumns();
  data_.GetData(12);
  EXPECT_EQ(data_.CollectData() + data_.StartOnFail() + data_.CurStdDatafile() + data_.CurStdPath(), "NN");
}

TEST_F(HomRecord, AFailedOrEmptyLoadLeavesTheRecordAlone) {
  Fill(data_);
  data_.GetData(99);
  EXPECT_TRUE(host_.errors->reports.empty());
  host_.database->noResultSet = true;
  data_.GetData(12);
  host_.database->failure = "disk I/O error";
  data_.GetData(12);
  const std::string report = "HOM Study|MSQL|LoadHomData|Unable to load study types data from KIV_HomStudy";
  EXPECT_EQ(host_.errors->reports, (std::vector<std::string>{report, report}));
  EXPECT_EQ(data_.ID(), 12);
  EXPECT_EQ(data_.Path(), "/d/o'hare");
}

TEST_F(HomRecord, WritesReportTheirFailure) {
  Fill(data_);
  host_.database->failure = "database is locked";
  EXPECT_FALSE(data_.InsertNew());
  EXPECT_NO_THROW(data_.Update());
  EXPECT_EQ(host_.errors->reports,
            (std::vector<std::string>{"HOM Study|MSQL|InsertHomData|database is locked",
                                      "HOM Study|MSQL|UpdateHomData|database is locked"}));
}

TEST_F(HomRecord, BelongsToAHomStudyOnly) {
  CKivStudyData study;
  study.InitNew(std::string(kHomStudy), "HOM", study.StudyType(), study.ScenarioType(), 3);
  ASSERT_NE(study.HomData(), nullptr);
  EXPECT_EQ(study.HomData()->HomMode(), 0);
  EXPECT_TRUE(host_.database->queries.empty());
  study.SaveSubTableData();
  EXPECT_EQ(study.HomData()->ID(), 3);
  const auto other = std::make_shared<CKivHomData>();
  study.SetHomData(other);
  EXPECT_EQ(study.HomData(), other);
  study.SetHomData(nullptr);
  EXPECT_THROW(study.SaveSubTableData(), Error);
}

}  // namespace
}  // namespace kiv
