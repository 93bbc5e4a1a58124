// What the records of each study kind load, and their lists.

#include <algorithm>

#include "base/ascii.h"
#include "core/study_data.h"
#include "hom/hom_data.h"
#include "plm/mode_names.h"
#include "plm/plm_data.h"
#include "rfc/rfc_data.h"
#include "support/fake_host.h"
#include "support/raised.h"
#include "vcsa/vcs_data.h"

namespace kiv {
namespace {

using namespace MKivStudyCtls;
using Statements = std::vector<std::string>;

TEST(HomRecord, LoadsTheFirstRow) {
  test::FakeHost host;
  CKivHomData data;
  test::FakeRows rows;
  for (const auto& field : CKivHomData::Fields()) rows.names.push_back(AsciiUpper(field.name));
  rows.rows.push_back({12, "/d", Variant(), "2", "Y", "N", "N", "N", "N", "N", "N", "N", "N", "N", "Y", "Y",
                       "N", "c.hom", "/omp"});
  host.database->answers["SELECT * FROM KIV_HomStudy WHERE Id = 12"] = rows;
  data.GetData(12);
  EXPECT_EQ(data.ID(), 12);
  EXPECT_EQ(data.DataFile(), "");  // NULL
  EXPECT_EQ(data.HomMode(), 2);
  EXPECT_EQ(data.SoftDrop(), "Y");
  EXPECT_EQ(data.CurStdPath(), "/omp");

  host.database->missingColumns = {"KIV_HOMSTUDY.COLLECTDATA"};
  data.GetData(12);
  EXPECT_EQ(data.CollectData() + data.StartOnFail() + data.CurStdDatafile() + data.CurStdPath(), "NN");

  data.SetPath("/mine");
  host.database->questionFailure = "connection lost";
  data.GetData(12);  // a question that fails is told as the query that fails
  EXPECT_EQ(host.errors->reports,
            Statements{"HOM Study|MSQL|LoadHomData|Unable to load study types data from KIV_HomStudy"});
  EXPECT_EQ(data.Path(), "/mine");
}

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

TEST_F(PlmRecord, LoadReadsTheStudyItsModesAndTheirChannels) {
  host_.database->answers["Select * From Kiv_PlmStudy Where ID = 12"] = {{"ID", "path", "DATAFILE", "Tag"},
                                                                         {{12, "/d", "p.plm", Variant()}}};
  StoreModes({0, 2, 2, 7});
  host_.database->answers[ChannelQuery(2)] = {{"ID", "PLMMODE", "CHANNEL"},
                                              {{12, 2, 5}, {12, 2, 7}, {12, 2, 9}}};
  data_.GetData(12);
  EXPECT_EQ(host_.database->queries, (Statements{"Select * From Kiv_PlmStudy Where ID = 12", kModesQuery,
                                                 ChannelQuery(2), ChannelQuery(2), ChannelQuery(7)}));
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

TEST_F(PlmRecord, ModesAreHandedOutAndRemovedByName) {
  const auto loose = data_.ReturnMode("Mode 3");
  EXPECT_EQ(data_.Modes()->Count(), 0);
  data_.AddMode("Mode 3", loose);
  EXPECT_EQ(data_.ReturnMode("Mode 3"), loose);
  loose->AddChannel(0, 0, 4, "Channel:4");
  const auto before = loose->ChannelList();
  loose->ClearChannelList();
  EXPECT_EQ(before->Count(), 1);
  EXPECT_EQ(loose->GetChannelList(), "");
  data_.RemoveMode("Mode 3");
  data_.RemoveMode("Mode 3");
  EXPECT_EQ(data_.Modes()->Count(), 0);
}

class RfcRecord : public ::testing::Test {
 protected:
  test::FakeHost host_;
  CKivRfcData data_;
};

const std::string kStudyQuery = "SELECT * FROM KIV_RfcStudy WHERE Id = 9";
const std::string kCellQuery =
    "SELECT * FROM KIV_Cell_List WHERE KIV_List_Id = 9 ORDER BY SystemId, EcpId, CellId";
const std::string kDnQuery = "SELECT * FROM KIV_RfcDnList WHERE Id = 9";

TEST_F(RfcRecord, LoadsAStudyOfAnEcpWithAndWithoutRateColumns) {
  auto& answers = host_.database->answers;
  answers["SELECT * FROM KIV_Ecp_List WHERE kiv_list_id = 9"] = {
      {"kiv_list_id", "instanceid", "systemid", "ecpid"}, {{9, 5, 1, 2}}};
  answers[kDnQuery] = {{"Id", "Dn", "DataFile"}, {{9, "5552", "b.rft"}, {9, "5551", Variant()}}};
  const struct {
    std::vector<std::string> rateColumns;
    std::vector<Variant> rates;
    int forward;
    int reverse;
  } cases[] = {{{}, {}, 0, 0}, {{"f", "r"}, {3, Variant()}, 3, 0}, {{"F", "R"}, {70000, "5"}, 0, 5}};
  for (const auto& one : cases) {
    auto& [names, rows] = answers[kStudyQuery];
    names = {"ID", "TAG", "DBM", "CLEARLOG", "MULTIPLEDNS", "USEECP", "PATH"};
    rows = {{9, "data", "N", "Y", "Y", "Y", "/d"}};
    std::ranges::copy(one.rateColumns, std::back_inserter(names));
    std::ranges::copy(one.rates, std::back_inserter(rows[0]));
    CKivRfcData data;
    data.SetForwardRateRestriction(4);
    data.GetData(9);
    EXPECT_EQ(data.ID(), 9);
    EXPECT_EQ(data.Tag() + data.ClearLog() + data.MultipleDns() + data.Path(), "dataYY/d");
    EXPECT_EQ(data.ForwardRateRestriction(), one.forward);
    EXPECT_EQ(data.ReverseRateRestriction(), one.reverse);
    EXPECT_FALSE(data.WasUsingCells());
    EXPECT_EQ(AsEcp(data.Entities()->Item("Ecp:5")).EcpID(), 2);
    EXPECT_EQ(data.DNs()->Count(), 2);
    EXPECT_EQ((*data.DNs()->begin())->Dn(), "5552");
    EXPECT_EQ(data.StoredLists()[0].entries[0].fields[0].value, Variant(5));
    EXPECT_EQ(data.StoredLists()[1].entries[0].fields[1].value, Variant("b.rft"));
  }
}

TEST_F(RfcRecord, ALoadGoesOnToTheListsWhateverTheRow) {
  auto& answers = host_.database->answers;
  answers[kCellQuery] = {{"InstanceId", "SystemId", "EcpId", "CellId"}, {{11, 1, 2, 37}}};
  data_.GetData(9);
  EXPECT_TRUE(data_.WasUsingCells());
  EXPECT_EQ(AsCell(data_.Entities()->Item("Cell:11")).CellID(), 37);
  EXPECT_EQ(host_.database->queries, (std::vector<std::string>{kStudyQuery, kCellQuery, kDnQuery}));

  answers[kCellQuery].rows.push_back({11, 1, 2, 38});  // the same instance once more
  CKivRfcData other;
  EXPECT_EQ(test::NumberRaisedBy([&] { other.GetData(9); }), ErrorNumber::DuplicateKey);
}

TEST_F(RfcRecord, ADnThatIsThereKeepsItsDataFileAndEntitiesAreOfOneType) {
  data_.SetID(9);
  data_.AddDn("5551", "A");
  data_.AddDn("5551", "B");
  ASSERT_EQ(data_.DNs()->Count(), 1);
  const CDn& dn = *data_.DNs()->Item("5551");
  EXPECT_EQ(dn.DataFile() + dn.Key() + std::to_string(dn.ID()), "A55519");
  data_.AddEcp(5, 1, 2);
  data_.SetUseEcp("");
  EXPECT_THROW(data_.InsertNew(), Error) << "its entities are of the other type";
  data_.SetDNs(nullptr);
  EXPECT_THROW(data_.AddDn("5551", "A"), Error);
}

TEST_F(RfcRecord, FeaturesAreActiveWhenTheirColumnIsExactlyY) {
  host_.database->answers["SELECT * FROM KIV_FAF WHERE InstanceId = 5"] = {
      {"INSTANCEID", "OMPHOSTNAME", "F121", "F161", "F276", "F297", "F368", "F430", "F465", "F545", "F559"},
      {{5, "omp1", "y", "Y", "N", Variant(), "Y ", "", "Y", "N", "N"}}};
  EXPECT_TRUE(data_.LookupFAF(5));
  EXPECT_FALSE(data_.LookupFAF(0));  // asks nothing and changes nothing
  const FafRow faf = data_.Faf();
  EXPECT_EQ(faf.OmpHostName + std::to_string(faf.InstanceId), "omp15");
  EXPECT_TRUE(faf.F161 && faf.F465);
  EXPECT_FALSE(faf.F121 || faf.F276 || faf.F297 || faf.F368 || faf.F430 || faf.F545 || faf.F559);
  EXPECT_EQ(host_.database->queries.size(), 1U);

  EXPECT_FALSE(data_.LookupFAF(6));
  EXPECT_EQ(data_.Faf().OmpHostName + std::to_string(data_.Faf().InstanceId), "0");
  EXPECT_FALSE(data_.Faf().F161 || data_.Faf().F465);
}

TEST(VcsaRecord, ALoadGoesOnToTheListsWhateverTheRow) {
  test::FakeHost host;
  CKivVcsData data;
  host.database->answers[kCellQuery] = {{"INSTANCEID", "SYSTEMID", "ECPID", "CELLID"}, {{11, 1, 2, 37}}};
  data.GetData(9);
  EXPECT_EQ(data.Path(), "");
  EXPECT_EQ(AsCell(data.Cells()->Item("Cell:11")).CellID(), 37);
  EXPECT_EQ(host.database->queries.size(), 4U);
  EXPECT_THROW(data.GetData(9), Error);  // the same cell once more
  data.ClearCells();
  EXPECT_THROW(data.AddCell(1, 1, 1, 1), Error);
}

}  // namespace
}  // namespace kiv
