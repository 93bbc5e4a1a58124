// The records of all study kinds: the statements they write, what they load, what they make of failures.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <set>

#include "core/study_data.h"
#include "core/study_kinds.h"
#include "hom/hom_data.h"
#include "plm/mode_names.h"
#include "plm/plm_data.h"
#include "rfc/rfc_data.h"
#include "support/fake_host.h"
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
    "Hard, "
    "ToCdmaAmps, SemiSoftPrimary, SoftPrimary, SoftAdd, SoftDrop";
const std::string kHomValues =
    ") VALUES (9, '/d/o''hare', 'h$YY.hom', 1, 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y', 'N', 'Y'";
const std::string kHomUpdate =
    "UPDATE KIV_HomStudy SET Path = '/d/o''hare', DataFile = 'h$YY.hom', HomMode = 1, ToAmps = 'Y', FromAmps "
    "= 'N', "
    "ToTdmaAmps = 'Y', ToTdma = 'N', SemiSoft = 'Y', Hard = 'N', ToCdmaAmps = 'Y', SemiSoftPrimary = 'N', "
    "SoftPrimary = 'Y', SoftAdd = 'N', SoftDrop = 'Y'";
const Statements kHomQuestion = {"KIV_HOMSTUDY.COLLECTDATA"};

const Statements kPlmInserts = {
    "INSERT INTO KIV_PlmStudy (Id, Path, DataFile, Tag) VALUES (9, '/d/o''hare', 'p$YY.plm', 'tag')",
    "INSERT INTO KIV_PlmMode (Id, PlmMode, Carrier, ServiceOption, GenerationType, SelectionMethod, "
    "AmpsDistribution, TdmaDistribution, TotalDistribution, SortBy, SelectFromList, RangeFrom, RangeTo, "
    "ExcludeAce, "
    "DistributionMethod) VALUES (9, 2, NULL, 17, NULL, 'Manual', 1, 2, NULL, 'Member', 'Begin', 3, NULL, '', "
    "'Expand')",
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

const Statements kVcsLists = {kCellRow + "11, 1, 2, 37)",
                              "INSERT INTO KIV_Antenna_List (kiv_list_id, InstanceId, SystemId, EcpId, "
                              "CellId, AntennaId, Selected) VALUES (9, "
                              "912, 1, 2, 37, 4, 'Y')",
                              "INSERT INTO KIV_Carrier_List (kiv_list_id, InstanceId, SystemId, EcpId, "
                              "CellId, CarrierId, Selected) VALUES (9, "
                              "0, 1, 2, 37, 5, 'N')",
                              kCellRow + "12, 1, 2, 38)"};

const Written kWritten[] = {
    {"Hom",
     kHomStudy,
     FillHom,
     {kHomInsert + ", CollectData, StartOnFail, CurStdDatafile, CurStdPath" + kHomValues +
      ", 'Y', 'N', 'c.hom', '/omp')"},
     {kHomUpdate +
      ", CollectData = 'Y', StartOnFail = 'N', CurStdDatafile = 'c.hom', CurStdPath = '/omp' WHERE Id = "
      "9"},
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
         "EventG, "
         "EventH, EventI, EventJ, EventK, EventL, EventM, SingleDn, DirectionalSetup, CarrierData) VALUES "
         "(9, "
         "'/d', 'v.vcs', 'Y', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'N', 'Y', '555', 'N', 'N')"} +
         kVcsLists,
     Statements{
         "UPDATE KIV_VcsStudy SET Path = '/d', DataFile = 'v.vcs', EventA = 'Y', EventB = 'N', EventC = 'N', "
         "EventD = 'N', EventE = 'N', EventF = 'N', EventG = 'N', EventH = 'N', EventI = 'N', EventJ = 'N', "
         "EventK = 'N', EventL = 'N', EventM = 'Y', SingleDn = '555', DirectionalSetup = 'N', CarrierData = "
         "'N' WHERE Id = 9"} +
         kCellDeletes + kVcsLists},
};

std::shared_ptr<CKivStudyData> NewStudy(std::string_view kind) {
  auto study = std::make_shared<CKivStudyData>();
  study->InitNew(std::string(kind), "", study->StudyType(), study->ScenarioType(), 9);
  return study;
}

class WrittenRecords : public ::testing::TestWithParam<Written> {
 protected:
  test::FakeHost host_;
  std::shared_ptr<CKivStudyData> study_ = NewStudy(GetParam().kind);
};

INSTANTIATE_TEST_SUITE_P(Kinds, WrittenRecords, ::testing::ValuesIn(kWritten),
                         [](const auto& written) { return written.param.name; });

TEST_P(WrittenRecords, AreInsertedAndUpdatedWithTheirLists) {
  EXPECT_TRUE(host_.database->queries.empty());
  GetParam().fill(*study_);
  host_.database->missingColumns = GetParam().missingColumns;
  study_->SaveSubTableData();
  EXPECT_EQ(host_.database->statements, GetParam().insert);
  host_.database->statements.clear();
  study_->SetIsNew(false);
  study_->SaveSubTableData();
  EXPECT_EQ(host_.database->statements, GetParam().update);
  EXPECT_EQ(host_.database->columnQuestions, GetParam().asked + GetParam().asked);
}

/// What a kind makes of a database that fails.
struct Failing {
  std::string_view kind;
  std::function<void(CKivStudyData&)> fill;
  std::string query;    // of the study's row
  std::string loaded;   // the report of a failing load
  Statements inserted;  // the reports of a failing insert; none when it is raised
  std::string updated;  // the first one of a failing update
  bool raisesUpdate;    // by the deletes
};

const Failing kFailing[] = {
    {kHomStudy,
     FillHom,
     "SELECT * FROM KIV_HomStudy WHERE Id = 9",
     "HOM Study|MSQL|LoadHomData|Unable to load study types data from KIV_HomStudy",
     {"HOM Study|MSQL|InsertHomData|locked"},
     "HOM Study|MSQL|UpdateHomData|locked",
     false},
    {kPlmStudy,
     FillPlm,
     "Select * From Kiv_PlmStudy Where ID = 9",
     "PLM Study|MSQL|LoadPlmData|Unable to load study data from KIV_PlmStudy",
     {},
     "",
     true},
    {kRfcStudy,
     FillRfc("Y", 0, 0),
     "SELECT * FROM KIV_RfcStudy WHERE Id = 9",
     "RF Call Trace Study|MSQL|LoadRfcData|Unable to load study types data from KIV_RfcStudy",
     {"RF Call Trace Study|MSQL|InsertRfcData|locked", "locked",
      "RF Call Trace Study|MSQL|InsertRfcDn|locked", "RF Call Trace Study|MSQL|InsertRfcDn|locked"},
     "RF Call Trace Study|MSQL|UpdateRfcData|locked",
     true},
    {kVcsStudy,
     FillVcs,
     "SELECT * FROM KIV_VcsStudy WHERE Id = 9",
     "VCSA Study|MSQL|LoadVcsData|Unable to load study types data from KIV_VcsStudy",
     {"VCSA Study|MSQL|InsertVcsData|locked", "locked", "locked", "locked", "locked"},
     "VCSA Study|MSQL|UpdateVcsData|locked",
     true},
};

TEST(Records, ReportOrRaiseTheirFailuresAndStayAsTheyWere) {
  for (const Failing& one : kFailing) {
    SCOPED_TRACE(one.kind);
    test::FakeHost host;
    const auto study = NewStudy(one.kind);
    one.fill(*study);
    ISubRecord& record = *study->SubRecord();
    const auto before = record.StoredFields();
    const auto unchanged = [&] {
      const auto after = record.StoredFields();
      return std::equal(before.begin(), before.end(), after.begin(), after.end(),
                        [](const auto& left, const auto& right) { return left.value == right.value; });
    };
    record.GetData(9);  // there is no row
    EXPECT_TRUE(host.errors->reports.empty() && unchanged());
    EXPECT_EQ(host.database->queries.front(), one.query);
    EXPECT_EQ(host.database->timeouts, std::vector<int>(host.database->queries.size(), 60));
    host.database->noResultSet = true;
    record.GetData(9);
    EXPECT_EQ(host.errors->reports, Statements{one.loaded});
    host.database->failure = "locked";
    if (one.kind == kHomStudy) {
      record.GetData(9);
    } else {
      EXPECT_THROW(record.GetData(9), host::DatabaseError);  // by the lists
    }
    EXPECT_EQ(host.errors->reports, (Statements{one.loaded, one.loaded}));
    EXPECT_TRUE(unchanged());

    host.errors->reports.clear();
    if (one.inserted.empty()) {
      EXPECT_THROW(record.InsertNew(), host::DatabaseError);
    } else {
      EXPECT_FALSE(record.InsertNew());
    }
    EXPECT_EQ(host.errors->reports, one.inserted);
    host.errors->reports.clear();
    if (one.raisesUpdate) {
      EXPECT_THROW(record.Update(), host::DatabaseError);
    } else {
      EXPECT_NO_THROW(record.Update());
    }
    EXPECT_EQ(host.errors->reports, one.updated.empty() ? Statements{} : Statements{one.updated});
  }
}

TEST(HomRecord, LoadsTheFirstRow) {
  test::FakeHost host;
  CKivHomData data;
  test::FakeRows rows;
  for (const auto& field : CKivHomData::Fields()) {
    rows.names.push_back(sql::AsciiUpper(field.name));
  }
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
}

TEST(Records, BelongToAStudyOfTheirKindOnly) {
  test::FakeHost host;
  const auto study = NewStudy(kHomStudy);
  EXPECT_EQ(study->VcsData(), nullptr);
  const auto other = std::make_shared<CKivHomData>();
  study->SetHomData(other);
  EXPECT_EQ(study->HomData(), other);
  study->SetHomData(nullptr);
  EXPECT_THROW(study->SaveSubTableData(), Error);
}

using namespace MKivStudyCtls;

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
    for (const auto& field : CKivPlmMode::Fields()) rows.names.push_back(sql::AsciiUpper(field.name));
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
  const std::vector<std::string> columns = {"ID", "TAG", "DBM", "CLEARLOG", "MULTIPLEDNS", "USEECP", "PATH"};
  const auto with = [&columns](std::vector<std::string> more) {
    std::vector<std::string> all = columns;
    all.insert(all.end(), more.begin(), more.end());
    return all;
  };
  auto& answers = host_.database->answers;
  answers["SELECT * FROM KIV_Ecp_List WHERE kiv_list_id = 9"] = {
      {"kiv_list_id", "instanceid", "systemid", "ecpid"}, {{9, 5, 1, 2}}};
  answers[kDnQuery] = {{"Id", "Dn", "DataFile"}, {{9, "5552", "b.rft"}, {9, "5551", Variant()}}};
  const struct {
    test::FakeRows row;
    int forward;
    int reverse;
  } cases[] = {
      {{with({}), {{9, "data", "N", "Y", "Y", "Y", "/d"}}}, 0, 0},
      {{with({"f", "r"}), {{9, "data", "N", "Y", "Y", "Y", "/d", 3, Variant()}}}, 3, 0},
      {{with({"F", "R"}), {{9, "data", "N", "Y", "Y", "Y", "/d", 70000, "5"}}}, 0, 5},
  };
  for (const auto& one : cases) {
    answers[kStudyQuery] = one.row;
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
  try {
    other.GetData(9);
    FAIL() << "took two cells of one instance";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::DuplicateKey);
  }
}

TEST_F(RfcRecord, ADnThatIsThereKeepsItsDataFile) {
  data_.SetID(9);
  data_.AddDn("5551", "A");
  data_.AddDn("5551", "B");
  ASSERT_EQ(data_.DNs()->Count(), 1);
  const CDn& dn = *data_.DNs()->Item("5551");
  EXPECT_EQ(dn.DataFile() + dn.Key() + std::to_string(dn.ID()), "A55519");
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
  EXPECT_EQ(data_.Faf().InstanceId, 0);
  EXPECT_EQ(data_.Faf().OmpHostName, "");
  EXPECT_FALSE(data_.Faf().F161 || data_.Faf().F465);
  EXPECT_TRUE(data_.LookupFAF(5));
  data_.InitFaF();
  EXPECT_FALSE(data_.Faf().F161);
}

TEST_F(RfcRecord, RefusesEntitiesOfTheOtherType) {
  data_.AddEcp(5, 1, 2);
  data_.SetUseEcp("");
  EXPECT_THROW(data_.InsertNew(), Error);
}

TEST(VcsaRecord, ALoadGoesOnToTheListsWhateverTheRow) {
  test::FakeHost host;
  CKivVcsData data;
  host.database
      ->answers["SELECT * FROM KIV_Cell_List WHERE KIV_List_Id = 9 ORDER BY SystemId, EcpId, CellId"] = {
      {"KIV_LIST_ID", "INSTANCEID", "SYSTEMID", "ECPID", "CELLID"}, {{9, 11, 1, 2, 37}}};
  data.SetID(9);
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
