// The records of all study kinds: the statements they write, what they load, what they make of failures.

#include <algorithm>
#include <array>
#include <functional>
#include <set>

#include "base/ascii.h"
#include "core/study_data.h"
#include "hom/hom_data.h"
#include "plm/mode_names.h"
#include "plm/plm_data.h"
#include "rfc/rfc_data.h"
#include "support/fake_host.h"
#include "support/raised.h"
#include "support/tab_test.h"
#include "vcsa/vcs_data.h"

namespace kiv {
namespace {

using Statements = std::vector<std::string>;

Statements operator+(Statements left, const Statements& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

/// A filled study and what is written of it.
struct Written {
  const char* name;
  std::string_view kind;
  std::function<void(CKivStudyData&)> fill;
  Statements insert;
  Statements update;
  std::set<std::string> missingColumns = {};
  Statements asked = {};  // about columns, by each of the two
};

void FillHom(CKivStudyData& study) {
  study.HomData()->Initialize(9, "/d/o'hare", "h$YY.hom", 1, "Y", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N",
                              "Y", "Y", "N", "c.hom", Variant("/omp"));
}

void FillPlm(CKivStudyData& study) {
  using MKivStudyCtls::ModeName;
  CKivPlmData& data = *study.PlmData();
  data.Initialize(9, "/d/o'hare", "p$YY.plm", "tag");
  const auto mode = std::make_shared<CKivPlmMode>();
  mode->Initialize(0, 2, -1, 17, -1, "Manual", 1, 2, -1, "Expand", "Member", "Begin", 3, -1, "", true);
  mode->AddChannel(0, 0, 313, "Channel:313");
  mode->AddChannel(0, 0, 312, "Channel:312");
  mode->AddChannel(0, 0, 999, "Channel:312");
  data.AddMode(ModeName(2), mode);
  data.AddMode(ModeName(2), std::make_shared<CKivPlmMode>());
  data.AddMode(ModeName(1), std::make_shared<CKivPlmMode>());  // not checked
}

/// A study of two DNs on one ECP, or on two cells of it.
std::function<void(CKivStudyData&)> FillRfc(const char* useEcp, std::int16_t forward, std::int16_t reverse) {
  return [=](CKivStudyData& study) {
    CKivRfcData& data = *study.RfcData();
    data.Initialize(9, "it's", "N", "Y", useEcp, "/d", forward, reverse);
    if (data.UseEcp() == "Y") {
      data.AddEcp(5, 1, 2);
    } else {
      data.AddCell(12, 1, 2, 38);
      data.AddCell(11, 1, 2, 37);
    }
    data.AddDn("5552", "b.rft");
    data.AddDn("5551", "a.rft");
  };
}

void FillVcs(CKivStudyData& study) {
  CKivVcsData& data = *study.VcsData();
  std::array<std::string, CKivVcsData::kTexts> texts;
  texts.fill("N");
  texts[0] = "/d";
  texts[1] = "v.vcs";
  texts[2] = "Y";   // event A
  texts[14] = "Y";  // event M
  texts[15] = "555";
  data.Initialize(9, texts);
  data.AddCell(11, 1, 2, 37);
  data.AddCell(12, 1, 2, 38);
  CCell& cell = AsCell(data.Cells()->Item("Cell:11"));
  cell.AddAntenna(912, 1, 2, 37, 4, true);
  cell.AddCarrier(0, "1", "2", "37", "5", false);
}

const std::string kHomInsert =
    "INSERT INTO KIV_HomStudy (Id, Path, DataFile, HomMode, ToAmps, FromAmps, ToTdmaAmps, ToTdma, SemiSoft, "
    "Hard, ToCdmaAmps, SemiSoftPrimary, SoftPrimary, SoftAdd, SoftDrop";
const std::string kHomValues =
    ") VALUES (9, '/d/o''hare', 'h$YY.hom', 1, 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y'";
const std::string kHomUpdate =
    "UPDATE KIV_HomStudy SET Path = '/d/o''hare', DataFile = 'h$YY.hom', HomMode = 1, ToAmps = 'Y', "
    "FromAmps = 'N', ToTdmaAmps = 'Y', ToTdma = 'N', SemiSoft = 'Y', Hard = 'N', ToCdmaAmps = 'Y', "
    "SemiSoftPrimary = 'N', SoftPrimary = 'Y', SoftAdd = 'N', SoftDrop = 'Y'";
const Statements kHomQuestion = {"KIV_HOMSTUDY.COLLECTDATA"};

const Statements kPlmInserts = {
    "INSERT INTO KIV_PlmStudy (Id, Path, DataFile, Tag) VALUES (9, '/d/o''hare', 'p$YY.plm', 'tag')",
    "INSERT INTO KIV_PlmMode (Id, PlmMode, Carrier, ServiceOption, GenerationType, SelectionMethod, "
    "AmpsDistribution, TdmaDistribution, TotalDistribution, SortBy, SelectFromList, RangeFrom, RangeTo, "
    "ExcludeAce, DistributionMethod) "
    "VALUES (9, 2, NULL, 17, NULL, 'Manual', 1, 2, NULL, 'Member', 'Begin', 3, NULL, '', 'Expand')",
    "INSERT INTO KIV_PlmChannelList (Id, PlmMode, Channel) VALUES (9, 2, 313)",
    "INSERT INTO KIV_PlmChannelList (Id, PlmMode, Channel) VALUES (9, 2, 312)"};

const Statements kDnRows = {"INSERT INTO KIV_RfcDnList (Id, Dn, DataFile) VALUES (9, '5552', 'b.rft')",
                            "INSERT INTO KIV_RfcDnList (Id, Dn, DataFile) VALUES (9, '5551', 'a.rft')"};
const std::string kCellRow =
    "INSERT INTO KIV_Cell_List (kiv_list_id, InstanceId, SystemId, EcpId, CellId) VALUES (9, ";
const Statements kRfcCells = Statements{kCellRow + "12, 1, 2, 38)", kCellRow + "11, 1, 2, 37)"} + kDnRows;
const Statements kRfcEcp =
    Statements{"INSERT INTO KIV_Ecp_List (kiv_list_id, InstanceId, SystemId, EcpId) VALUES (9, 5, 1, 2)"} +
    kDnRows;
const Statements kCellDeletes = {"Delete From KIV_Antenna_List Where KIV_List_ID=9",
                                 "Delete From KIV_Carrier_List Where KIV_List_ID=9",
                                 "Delete From KIV_Cell_List Where KIV_List_ID=9"};
const Statements kRfcDeletes = Statements{"Delete From KIV_Ecp_List Where KIV_List_ID=9"} + kCellDeletes +
                               Statements{"Delete From KIV_RfcDnList Where ID=9"};
const std::string kRfcInsert = "INSERT INTO KIV_RfcStudy (Id, Tag, dBm, ClearLog, MultipleDns, UseEcp, Path";
const std::string kRfcUpdate =
    "UPDATE KIV_RfcStudy SET Tag = 'it''s', ClearLog = 'N', MultipleDns = 'Y', UseEcp = ";

const std::string kPartOfCell = " (kiv_list_id, InstanceId, SystemId, EcpId, CellId, ";
const Statements kVcsLists = {
    kCellRow + "11, 1, 2, 37)",
    "INSERT INTO KIV_Antenna_List" + kPartOfCell + "AntennaId, Selected) VALUES (9, 912, 1, 2, 37, 4, 'Y')",
    "INSERT INTO KIV_Carrier_List" + kPartOfCell + "CarrierId, Selected) VALUES (9, 0, 1, 2, 37, 5, 'N')",
    kCellRow + "12, 1, 2, 38)"};

const Written kWritten[] = {
    {"Hom",
     kHomStudy,
     FillHom,
     {kHomInsert + ", CollectData, StartOnFail, CurStdDatafile, CurStdPath" + kHomValues +
      ", 'Y', 'N', 'c.hom', '/omp')"},
     {kHomUpdate + ", CollectData = 'Y', StartOnFail = 'N', CurStdDatafile = 'c.hom', CurStdPath = '/omp' "
                   "WHERE Id = 9"},
     {},
     kHomQuestion},
    {"HomOfAnOlderDatabase",
     kHomStudy,
     FillHom,
     {kHomInsert + kHomValues + ")"},
     {kHomUpdate + " WHERE Id = 9"},
     {"KIV_HOMSTUDY.COLLECTDATA"},
     kHomQuestion},
    {"Plm", kPlmStudy, FillPlm, kPlmInserts,
     Statements{"Delete From KIV_PlmChannelList Where ID=9", "Delete From KIV_PlmStudy Where ID=9"} +
         kPlmInserts},
    {"RfcOfCells", kRfcStudy, FillRfc("", 0, 0),
     Statements{kRfcInsert + ") VALUES (9, 'it''s', 'Y', 'N', 'Y', '', '/d')"} + kRfcCells,
     Statements{kRfcUpdate + "'', Path = '/d' WHERE Id = 9"} + kRfcDeletes + kRfcCells},
    {"RfcOfAnEcp", kRfcStudy, FillRfc("Y", -1, 0),
     Statements{kRfcInsert + ") VALUES (9, 'it''s', 'Y', 'N', 'Y', 'Y', '/d')"} + kRfcEcp,
     Statements{kRfcUpdate + "'Y', Path = '/d' WHERE Id = 9"} + kRfcDeletes + kRfcEcp},
    {"RfcWithRates", kRfcStudy, FillRfc("Y", 0, 5),
     Statements{kRfcInsert + ", F, R) VALUES (9, 'it''s', 'Y', 'N', 'Y', 'Y', '/d', 0, 5)"} + kRfcEcp,
     Statements{kRfcUpdate + "'Y', Path = '/d', F = 0, R = 5 WHERE Id = 9"} + kRfcDeletes + kRfcEcp},
    {"RfcOfNotExactlyYes", kRfcStudy, FillRfc("y", 1, -2),
     Statements{kRfcInsert + ", F, R) VALUES (9, 'it''s', 'Y', 'N', 'Y', 'y', '/d', 1, -2)"} + kRfcCells,
     Statements{kRfcUpdate + "'y', Path = '/d', F = 1, R = -2 WHERE Id = 9"} + kRfcDeletes + kRfcCells},
    {"Vcsa", kVcsStudy, FillVcs,
     Statements{
         "INSERT INTO KIV_VcsStudy (ID, Path, DataFile, EventA, EventB, EventC, EventD, EventE, EventF, "
         "EventG, EventH, EventI, EventJ, EventK, EventL, EventM, SingleDn, DirectionalSetup, CarrierData) "
         "VALUES (9, '/d', 'v.vcs', 'Y', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'Y', '555', "
         "'N', 'N')"} +
         kVcsLists,
     Statements{
         "UPDATE KIV_VcsStudy SET Path = '/d', DataFile = 'v.vcs', EventA = 'Y', EventB = 'N', EventC = 'N', "
         "EventD = 'N', EventE = 'N', EventF = 'N', EventG = 'N', EventH = 'N', EventI = 'N', EventJ = 'N', "
         "EventK = 'N', EventL = 'N', EventM = 'Y', SingleDn = '555', DirectionalSetup = 'N', CarrierData = "
         "'N' WHERE Id = 9"} +
         kCellDeletes + kVcsLists},
};

class WrittenRecords : public ::testing::TestWithParam<Written> {};

INSTANTIATE_TEST_SUITE_P(Kinds, WrittenRecords, ::testing::ValuesIn(kWritten),
                         [](const auto& written) { return written.param.name; });

TEST_P(WrittenRecords, AreInsertedAndUpdatedWithTheirLists) {
  const test::FakeHost host;
  const auto study = test::NewStudy(GetParam().kind, 9);
  GetParam().fill(*study);
  host.database->missingColumns = GetParam().missingColumns;
  study->SaveSubTableData();
  EXPECT_EQ(std::exchange(host.database->statements, {}), GetParam().insert);
  study->SetIsNew(false);
  study->SaveSubTableData();
  EXPECT_EQ(host.database->statements, GetParam().update);
  EXPECT_EQ(host.database->columnQuestions, GetParam().asked + GetParam().asked);
}

/// What a kind makes of a database that fails.
struct Failing {
  std::string_view kind;
  std::function<void(CKivStudyData&)> fill;
  std::string query;        // of the study's row
  std::string routine;      // that loads it, without its first word
  const char* told;         // before the name of the table
  std::size_t failedLists;  // rows of lists that report their own failures
};

const Failing kFailing[] = {
    {kHomStudy, FillHom, "SELECT * FROM KIV_HomStudy", "HomData", "study types data from KIV_HomStudy", 0},
    {kPlmStudy, FillPlm, "Select * From Kiv_PlmStudy", "PlmData", "study data from KIV_PlmStudy", 0},
    {kRfcStudy, FillRfc("Y", 0, 0), "SELECT * FROM KIV_RfcStudy", "RfcData",
     "study types data from KIV_RfcStudy", 3},
    {kVcsStudy, FillVcs, "SELECT * FROM KIV_VcsStudy", "VcsData", "study types data from KIV_VcsStudy", 4},
};

bool Raises(const std::function<void()>& action) {
  try {
    action();
  } catch (const host::DatabaseError&) {
    return true;
  }
  return false;
}

TEST(Records, ReportOrRaiseTheirFailuresAndStayAsTheyWere) {
  for (const Failing& one : kFailing) {
    SCOPED_TRACE(one.kind);
    test::FakeHost host;
    const auto report = [&](const char* verb, const std::string& text) {
      return std::string(one.kind) + "|MSQL|" + verb + one.routine + "|" + text;
    };
    const auto study = test::NewStudy(one.kind, 9);
    one.fill(*study);
    ISubRecord& record = *study->SubRecord();
    const auto values = [&record] {
      std::vector<Variant> all;
      for (const NamedValue& field : record.StoredFields()) all.push_back(field.value);
      return all;
    };
    const auto before = values();
    record.GetData(9);  // there is no row
    EXPECT_TRUE(host.errors->reports.empty());
    EXPECT_TRUE(host.database->queries.front().starts_with(one.query));
    EXPECT_EQ(host.database->timeouts, std::vector<int>(host.database->queries.size(), 60));
    host.database->noResultSet = true;
    record.GetData(9);
    host.database->failure = "locked";
    const bool hasLists = one.kind != kHomStudy;
    EXPECT_EQ(Raises([&] { record.GetData(9); }), hasLists);
    const std::string unread = report("Load", std::string("Unable to load ") + one.told);
    EXPECT_EQ(host.errors->reports, (Statements{unread, unread}));
    EXPECT_EQ(values(), before);

    host.errors->reports.clear();
    const bool reports = one.kind != kPlmStudy;
    EXPECT_EQ(Raises([&] { EXPECT_FALSE(record.InsertNew()); }), !reports);
    EXPECT_EQ(host.errors->reports.size(), reports ? 1 + one.failedLists : 0);
    EXPECT_EQ(Raises([&] { record.Update(); }), hasLists);  // by the deletes
    if (!reports) continue;
    EXPECT_EQ(host.errors->reports.front(), report("Insert", "locked"));
    EXPECT_EQ(host.errors->reports.back(), report("Update", "locked"));
  }
}

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

TEST_F(RfcRecord, ALoadGoesOnToTheListsWhateverTheRowAsThatOfVcsaDoes) {
  auto& answers = host_.database->answers;
  answers[kCellQuery] = {{"InstanceId", "SystemId", "EcpId", "CellId"}, {{11, 1, 2, 37}}};
  data_.GetData(9);
  EXPECT_TRUE(data_.WasUsingCells());
  EXPECT_EQ(AsCell(data_.Entities()->Item("Cell:11")).CellID(), 37);
  EXPECT_EQ(host_.database->queries, (std::vector<std::string>{kStudyQuery, kCellQuery, kDnQuery}));

  answers[kCellQuery].rows.push_back({11, 1, 2, 38});  // the same instance once more
  CKivRfcData other;
  EXPECT_EQ(test::NumberRaisedBy([&] { other.GetData(9); }), ErrorNumber::DuplicateKey);
  answers[kCellQuery].rows.pop_back();
  CKivVcsData vcsa;
  vcsa.GetData(9);
  EXPECT_EQ(AsCell(vcsa.Cells()->Item("Cell:11")).CellID(), 37);
  EXPECT_EQ(host_.database->queries.size(), 9U);  // antennas and carriers of the cell as well
  EXPECT_THROW(vcsa.GetData(9), Error);           // the same cell once more
  vcsa.ClearCells();
  EXPECT_THROW(vcsa.AddCell(1, 1, 1, 1), Error);
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

}  // namespace
}  // namespace kiv
