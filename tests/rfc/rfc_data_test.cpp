#include "rfc/rfc_data.h"

#include <gtest/gtest.h>

#include "core/study_data.h"
#include "core/study_kinds.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

const std::string kStudyQuery = "SELECT * FROM KIV_RfcStudy WHERE Id = 9";
const std::string kCellQuery =
    "SELECT * FROM KIV_Cell_List WHERE KIV_List_Id = 9 ORDER BY SystemId, EcpId, CellId";
const std::string kEcpQuery = "SELECT * FROM KIV_Ecp_List WHERE kiv_list_id = 9";
const std::string kDnQuery = "SELECT * FROM KIV_RfcDnList WHERE Id = 9";

class RfcRecord : public ::testing::Test {
 protected:
  /// A study of two DNs on one ECP, or on two cells of it.
  void Fill(const char* useEcp, std::int16_t forward, std::int16_t reverse) {
    data_.Initialize(9, "it's", "N", "Y", useEcp, "/d", forward, reverse);
    data_.SetEntities(std::make_shared<EntityCollection>());
    data_.SetDNs(std::make_shared<DnCollection>());
    if (data_.UseEcp() == "Y") {
      data_.AddEcp(5, 1, 2);
    } else {
      data_.AddCell(12, 1, 2, 38);
      data_.AddCell(11, 1, 2, 37);
    }
    data_.AddDn("5552", "b.rft");
    data_.AddDn("5551", "a.rft");
    host_.database->statements.clear();
  }

  test::FakeHost host_;
  CKivRfcData data_;
};

const std::vector<std::string> kDnRows = {
    "INSERT INTO KIV_RfcDnList (Id, Dn, DataFile) VALUES (9, '5552', 'b.rft')",
    "INSERT INTO KIV_RfcDnList (Id, Dn, DataFile) VALUES (9, '5551', 'a.rft')"};
const std::vector<std::string> kCellRows = {
    "INSERT INTO KIV_Cell_List (kiv_list_id, InstanceId, SystemId, EcpId, CellId) VALUES (9, 12, 1, 2, 38)",
    "INSERT INTO KIV_Cell_List (kiv_list_id, InstanceId, SystemId, EcpId, CellId) VALUES (9, 11, 1, 2, 37)"};
const std::vector<std::string> kEcpRows = {
    "INSERT INTO KIV_Ecp_List (kiv_list_id, InstanceId, SystemId, EcpId) VALUES (9, 5, 1, 2)"};

std::vector<std::string> Joined(std::initializer_list<std::vector<std::string>> parts) {
  std::vector<std::string> all;
  for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST_F(RfcRecord, AnInsertNamesTheRateRestrictionsOnlyWhenThereIsOne) {
  const std::string head = "INSERT INTO KIV_RfcStudy (Id, Tag, dBm, ClearLog, MultipleDns, UseEcp, Path";
  const struct {
    const char* useEcp;
    std::int16_t forward;
    std::int16_t reverse;
    std::string row;
    std::vector<std::string> entities;
  } cases[] = {
      {"", 0, 0, head + ") VALUES (9, 'it''s', 'Y', 'N', 'Y', '', '/d')", kCellRows},
      {"Y", -1, 0, head + ") VALUES (9, 'it''s', 'Y', 'N', 'Y', 'Y', '/d')", kEcpRows},
      {"Y", 0, 5, head + ", F, R) VALUES (9, 'it''s', 'Y', 'N', 'Y', 'Y', '/d', 0, 5)", kEcpRows},
      {"y", 1, -2, head + ", F, R) VALUES (9, 'it''s', 'Y', 'N', 'Y', 'y', '/d', 1, -2)", kCellRows},
  };
  for (const auto& one : cases) {
    Fill(one.useEcp, one.forward, one.reverse);
    EXPECT_TRUE(data_.InsertNew());
    EXPECT_EQ(host_.database->statements, Joined({{one.row}, one.entities, kDnRows}));
  }
  EXPECT_TRUE(host_.database->columnQuestions.empty());
}

TEST_F(RfcRecord, AnUpdateWritesTheListsAnewAndLeavesClearedRestrictions) {
  const std::string head =
      "UPDATE KIV_RfcStudy SET Tag = 'it''s', ClearLog = 'N', MultipleDns = 'Y', UseEcp = ";
  const std::vector<std::string> deletes = {
      "Delete From KIV_Ecp_List Where KIV_List_ID=9", "Delete From KIV_Antenna_List Where KIV_List_ID=9",
      "Delete From KIV_Carrier_List Where KIV_List_ID=9", "Delete From KIV_Cell_List Where KIV_List_ID=9",
      "Delete From KIV_RfcDnList Where ID=9"};
  Fill("", 5, 0);
  data_.Update();
  EXPECT_EQ(host_.database->statements,
            Joined({{head + "'', Path = '/d', F = 5, R = 0 WHERE Id = 9"}, deletes, kCellRows, kDnRows}));
  Fill("Y", 0, 0);
  data_.Update();
  EXPECT_EQ(host_.database->statements,
            Joined({{head + "'Y', Path = '/d' WHERE Id = 9"}, deletes, kEcpRows, kDnRows}));
}

TEST_F(RfcRecord, AFailingRowIsReportedAndAFailingDeleteRaised) {
  Fill("Y", 0, 0);
  host_.database->failure = "locked";
  EXPECT_FALSE(data_.InsertNew());
  EXPECT_EQ(host_.errors->reports,
            (std::vector<std::string>{"RF Call Trace Study|MSQL|InsertRfcData|locked", "locked",
                                      "RF Call Trace Study|MSQL|InsertRfcDn|locked",
                                      "RF Call Trace Study|MSQL|InsertRfcDn|locked"}));
  EXPECT_THROW(data_.Update(), host::DatabaseError);
  EXPECT_EQ(host_.errors->reports.back(), "RF Call Trace Study|MSQL|UpdateRfcData|locked");
  data_.SetUseEcp("");  // the list still holds an ECP
  EXPECT_THROW(data_.InsertNew(), Error);
}

TEST_F(RfcRecord, LoadsAStudyOfAnEcpWithAndWithoutRateColumns) {
  const std::vector<std::string> columns = {"ID", "TAG", "DBM", "CLEARLOG", "MULTIPLEDNS", "USEECP", "PATH"};
  const auto with = [&columns](std::vector<std::string> more) {
    std::vector<std::string> all = columns;
    all.insert(all.end(), more.begin(), more.end());
    return all;
  };
  auto& answers = host_.database->answers;
  answers[kEcpQuery] = {{"kiv_list_id", "instanceid", "systemid", "ecpid"}, {{9, 5, 1, 2}}};
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
  EXPECT_EQ(host_.database->timeouts.front(), 60);
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
  host_.database->noResultSet = true;
  CKivRfcData unread;
  unread.SetTag("mine");
  unread.GetData(9);
  EXPECT_EQ(unread.Tag(), "mine");
  EXPECT_EQ(host_.errors->reports,
            std::vector<std::string>{
                "RF Call Trace Study|MSQL|LoadRfcData|Unable to load study types data from KIV_RfcStudy"});
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

}  // namespace
}  // namespace kiv
