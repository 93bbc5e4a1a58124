#include "plm/plm_data.h"

#include <gtest/gtest.h>

#include "base/ascii.h"
#include "plm/mode_names.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

using namespace MKivStudyCtls;

constexpr const char* kStudyQuery = "Select * From Kiv_PlmStudy Where ID = 12";
constexpr const char* kModesQuery = "SELECT * FROM KIV_PlmMode WHERE Id = 12 ORDER BY PlmMode";

std::string ChannelQuery(int mode) {
  return "SELECT * FROM KIV_PlmChannelList WHERE ID = 12 AND PlmMode = " + std::to_string(mode) +
         " ORDER BY PlmMode, Channel";
}

class PlmRecord : public ::testing::Test {
 protected:
  /// Puts mode rows behind the query: the mode's number, and NULL for everything else but the last column.
  void StoreModes(const std::vector<int>& numbers) {
    test::FakeRows rows;
    for (const auto& field : CKivPlmMode::Fields()) rows.names.push_back(AsciiUpper(field.name));
    for (const int number : numbers) {
      std::vector<Variant> row(rows.names.size());
      row[0] = 12;
      row[1] = number;
      row.back() = "row " + std::to_string(rows.rows.size());
      rows.rows.push_back(row);
    }
    host_.database->answers[kModesQuery] = rows;
  }

  test::FakeHost host_;
  CKivPlmData data_;
};

TEST_F(PlmRecord, ModeNamesAreExact) {
  std::string names;
  for (std::int32_t number = 1; number <= 15; ++number) {
    names += ModeName(number) + "|";
    EXPECT_EQ(ModeNumber(ModeName(number)), number);
  }
  EXPECT_EQ(names,
            "Mode 1|Mode 2|Mode 3|Mode 4|Mode 5|Mode 6|Mode   7 FER1|Mode   8 FER2|Mode   9 CPLM1|"
            "Mode 10 CPLM2|Mode 11 CPLM3|Mode 12 CPLM4|Mode 13 CPLM5|Mode 14 CPLM6|Mode 15 CPLM7|");
  for (const char* wrong : {"Mode 7 FER1", "mode 1", "Mode 1 ", ""}) EXPECT_EQ(ModeNumber(wrong), 0) << wrong;
  EXPECT_EQ(ModeName(0) + ModeName(16) + ModeName(-1), "");
}

TEST_F(PlmRecord, InsertWritesCheckedModesInTheColumnsOfTheirOwn) {
  data_.Initialize(12, "/d/o'hare", "p$YY.plm", "tag");
  const auto mode = std::make_shared<CKivPlmMode>();
  mode->Initialize(0, 2, -1, 17, -1, "Manual", 1, 2, -1, "Expand", "Member", "Begin", 3, -1, "", true);
  mode->AddChannel(0, 0, 313, "Channel:313");
  mode->AddChannel(0, 0, 312, "Channel:312");
  mode->AddChannel(0, 0, 999, "Channel:312");
  data_.AddMode(ModeName(2), mode);
  data_.AddMode(ModeName(2), std::make_shared<CKivPlmMode>());
  data_.AddMode(ModeName(1), std::make_shared<CKivPlmMode>());
  EXPECT_EQ(data_.ModeCount(), 1);
  EXPECT_EQ(data_.Modes()->Count(), 2);
  EXPECT_EQ(mode->GetChannelList(), "313;312");
  EXPECT_TRUE(data_.InsertNew());
  const std::vector<std::string> inserts = {
      "INSERT INTO KIV_PlmStudy (Id, Path, DataFile, Tag) VALUES (12, '/d/o''hare', 'p$YY.plm', 'tag')",
      "INSERT INTO KIV_PlmMode (Id, PlmMode, Carrier, ServiceOption, GenerationType, SelectionMethod, "
      "AmpsDistribution, TdmaDistribution, TotalDistribution, SortBy, SelectFromList, RangeFrom, RangeTo, "
      "ExcludeAce, DistributionMethod) VALUES (12, 2, NULL, 17, NULL, 'Manual', 1, 2, NULL, 'Member', "
      "'Begin', 3, NULL, '', 'Expand')",
      "INSERT INTO KIV_PlmChannelList (Id, PlmMode, Channel) VALUES (12, 2, 313)",
      "INSERT INTO KIV_PlmChannelList (Id, PlmMode, Channel) VALUES (12, 2, 312)"};
  EXPECT_EQ(host_.database->statements, inserts);

  host_.database->statements.clear();
  data_.Update();
  std::vector<std::string> update = {"Delete From KIV_PlmChannelList Where ID=12",
                                     "Delete From KIV_PlmStudy Where ID=12"};
  update.insert(update.end(), inserts.begin(), inserts.end());
  EXPECT_EQ(host_.database->statements, update);
}

TEST_F(PlmRecord, LoadReadsTheStudyItsModesAndTheirChannels) {
  host_.database->answers[kStudyQuery] = {{"ID", "path", "DATAFILE", "Tag"},
                                          {{12, "/d", "p.plm", Variant()}}};
  StoreModes({0, 2, 2, 7});
  host_.database->answers[ChannelQuery(2)] = {{"ID", "PLMMODE", "CHANNEL"},
                                              {{12, 2, 5}, {12, 2, 7}, {12, 2, 9}}};
  data_.GetData(12);
  EXPECT_EQ(host_.database->queries, (std::vector<std::string>{kStudyQuery, kModesQuery, ChannelQuery(2),
                                                               ChannelQuery(2), ChannelQuery(7)}));
  EXPECT_EQ(host_.database->timeouts, std::vector<int>(5, 60));
  EXPECT_EQ(data_.Path() + "|" + data_.DataFile() + "|" + data_.Tag(), "/d|p.plm|");
  std::string names;
  for (const auto& mode : data_) names += mode->Key() + "/";
  EXPECT_EQ(names, "Mode 2/Mode   7 FER1/");
  const CKivPlmMode& mode = *data_.ReturnMode("Mode 2");
  EXPECT_EQ(mode.DistributionMethod(), "row 1");  // the first row of a mode wins
  EXPECT_EQ(mode.Carrier(), -1);
  EXPECT_EQ(mode.RangeTo(), -1);
  EXPECT_EQ(mode.GetChannelList(), "5;7;9");
  EXPECT_EQ((*mode.ChannelList()->begin())->Key(), "Channel:5");
  EXPECT_EQ(data_.ModeCount(), 0);

  data_.Update();  // nobody checked a mode
  EXPECT_EQ(host_.database->statements.size(), 3U);
}

TEST_F(PlmRecord, OnlyTheFailureOfTheStudyRowIsKept) {
  data_.SetPath("/kept");
  host_.database->noResultSet = true;
  data_.GetData(12);
  EXPECT_EQ(
      host_.errors->reports,
      std::vector<std::string>{"PLM Study|MSQL|LoadPlmData|Unable to load study data from KIV_PlmStudy"});
  EXPECT_EQ(host_.database->queries.size(), 2U);  // the modes are read all the same
  EXPECT_EQ(data_.Path(), "/kept");

  host_.database->failure = "gone";
  EXPECT_THROW(data_.GetData(12), host::DatabaseError);  // by the modes
  EXPECT_EQ(host_.errors->reports.size(), 2U);
  EXPECT_THROW(data_.InsertNew(), host::DatabaseError);
  EXPECT_THROW(data_.Update(), host::DatabaseError);
  EXPECT_THROW(CKivPlmMode().LoadChannelList(), host::DatabaseError);
  EXPECT_EQ(host_.errors->reports.size(), 2U);
}

TEST_F(PlmRecord, ModesAreHandedOutAndRemovedByName) {
  const auto loose = data_.ReturnMode("Mode 3");
  EXPECT_EQ(data_.Modes()->Count(), 0);
  EXPECT_EQ(loose->PlmMode(), -1);
  data_.AddMode("Mode 3", loose);
  EXPECT_EQ(data_.ReturnMode("Mode 3"), loose);
  EXPECT_EQ(loose->Key(), "Mode 3");
  loose->AddChannel(0, 0, 4, "Channel:4");
  const auto before = loose->ChannelList();
  loose->ClearChannelList();
  EXPECT_EQ(before->Count(), 1);
  EXPECT_EQ(loose->GetChannelList(), "");
  data_.RemoveMode("Mode 3");
  data_.RemoveMode("Mode 3");
  EXPECT_EQ(data_.Modes()->Count(), 0);
}

}  // namespace
}  // namespace kiv
