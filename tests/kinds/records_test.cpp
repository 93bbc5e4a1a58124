// The records of all study kinds: the statements they write, what they load, what they make of failures.

#include <gtest/gtest.h>

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
    const auto study = NewStudy(one.kind);
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

}  // namespace
}  // namespace kiv
