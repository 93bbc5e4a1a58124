// RF call trace studies through their tabs, on real databases.

#include <gtest/gtest.h>

#include "core/study_kinds.h"
#include "rfc/cdma_3g_tab.h"
#include "rfc/detail_tab.h"
#include "rfc/general_tab.h"
#include "session/scenario_strip.h"
#include "support/studies_test.h"

namespace kiv::client {
namespace {

/// The tabs of one editor.
struct RfcHand {
  explicit RfcHand(session::StudySession& session)
      : strip(dynamic_cast<session::ScenarioStrip&>(*session.Header())),
        general(dynamic_cast<XKivRfcGen&>(*session.Tabs()[0])),
        detail(dynamic_cast<XKivRfcDetail&>(*session.Tabs()[1])),
        cdma3g(dynamic_cast<XKivRfcCDMA3G&>(*session.Tabs()[2])) {}

  void Enter(std::size_t row, const std::string& dn, const std::string& file) {
    detail.txtDirectoryNumber[row].edit.Type(dn);
    detail.txtFilename[row].Type(file);
  }

  session::ScenarioStrip& strip;
  XKivRfcGen& general;
  XKivRfcDetail& detail;
  XKivRfcCDMA3G& cdma3g;
};

const host::DraggedNode kEcp1 = {"Ecp:101", 1, 1, 0, 101};  // traces one DN
const host::DraggedNode kEcp2 = {"Ecp:102", 1, 2, 0, 102};  // traces several
const std::vector<host::DraggedNode> kCells = {{"Cell:238", 1, 2, 38, 238}, {"Cell:237", 1, 2, 37, 237}};

class RfcStudies : public test::EachEngine {
 protected:
  RfcStudies() {
    for (const char* row : {"(101, 'omp', 'Y', 'N')", "(102, 'omp', 'Y', 'Y')"}) {
      connection_->ExecuteSql(
          std::string("INSERT INTO KIV_FAF (InstanceId, OmpHostName, F161, F465) VALUES ") + row);
    }
    for (const char* cell : {"1-2-37", "1-2-38"}) {
      connection_->ExecuteSql(
          std::string("INSERT INTO vzn_instance_context (context_id, fullkey, ParentInstance_Id) VALUES "
                      "(2, '") +
          cell + "', 102)");
    }
  }

  /// A stored study of one ECP and its DNs.
  std::unique_ptr<session::StudySession> StoredStudy(const host::DraggedNode& ecp, std::size_t firstRow) {
    auto session = NewSession(kRfcStudy);
    session->SetName("Trace");
    RfcHand hand(*session);
    hand.strip.fdocCBScenario.SelectID(scenario_);
    hand.general.dlvwEntity.DropNodes({ecp});
    session->NotifyTabShown("XKivRfcDetail");
    hand.detail.txtPath.SetText(folder_.Path());
    hand.Enter(firstRow, "5552", "b");
    if (firstRow > 0) hand.Enter(firstRow + 1, "5551", "a");
    Save(*session);
    return session;
  }
  std::string Study() { return Rows("dBm, MultipleDns, UseEcp, F, R", "KIV_RfcStudy"); }
  std::string Entities() {
    return Rows("EcpId, InstanceId", "KIV_Ecp_List ORDER BY EcpId") + "/" +
           Rows("CellId, InstanceId", "KIV_Cell_List ORDER BY CellId");
  }
  std::string Dns() { return Rows("Dn, DataFile", "KIV_RfcDnList"); }
};

INSTANTIATE_TEST_SUITE_P(Engines, RfcStudies, ::testing::ValuesIn(test::Engines()),
                         [](const auto& engine) { return engine.param.name; });

TEST_P(RfcStudies, AStudyGoesFromAnEcpToCellsAndBack) {
  const auto first = StoredStudy(kEcp2, 1);
  EXPECT_EQ(Study(), "Y|Y|Y|NULL|NULL;");
  EXPECT_EQ(Entities(), "2|102;/");
  EXPECT_EQ(Dns(), "5552|b.rft;5551|a.rft;");

  const auto second = Reopened(first->ID());
  RfcHand toCells(*second);
  toCells.general.optEntityType[1].Click();
  toCells.general.dlvwEntity.DropNodes(kCells);
  Save(*second);
  EXPECT_EQ(Study(), "Y|Y||NULL|NULL;");
  EXPECT_EQ(Entities(), "/37|237;38|238;");
  EXPECT_EQ(Dns(), "5552|b.rft;5551|a.rft;");

  const auto third = Reopened(first->ID());
  RfcHand toEcp(*third);
  EXPECT_EQ(toEcp.general.optEntityType.Index(), 1);
  EXPECT_EQ(toEcp.general.dlvwEntity.RowCount(), 2U);
  EXPECT_EQ(toEcp.detail.txtDirectoryNumber[2].Text(), "5551");
  toEcp.general.optEntityType[0].Click();
  toEcp.general.dlvwEntity.DropNodes({kEcp2});
  Save(*third);
  EXPECT_EQ(Entities(), "2|102;/");

  store_.Remove(first->ID(), "ann");
  EXPECT_EQ(Study() + Entities() + Dns(), "/");
}

TEST_P(RfcStudies, AStudyOfSeveralDnsBecomesOneOfASingleDn) {
  const auto session = StoredStudy(kEcp2, 1);
  const auto again = Reopened(session->ID());
  RfcHand hand(*again);
  hand.general.dlvwEntity.RemoveAll();
  hand.general.dlvwEntity.DropNodes({kEcp1});
  again->NotifyTabShown("XKivRfcDetail");
  Save(*again);
  EXPECT_EQ(Study(), "Y|N|Y|NULL|NULL;");
  EXPECT_EQ(Entities(), "1|101;/");
  EXPECT_EQ(Dns(), "5552|b.rft;");
  const auto single = Reopened(session->ID());
  EXPECT_EQ(RfcHand(*single).detail.txtDirectoryNumber[0].Text(), "5552");
  EXPECT_FALSE(single->Modified());
}

TEST_P(RfcStudies, AClearedRestrictionStaysInTheDatabase) {
  const auto session = StoredStudy(kEcp1, 0);
  RfcHand hand(*session);
  hand.cdma3g.chkRestrictReverse.Click();
  hand.cdma3g.optReverseRate[4].Click();
  Save(*session);
  EXPECT_EQ(Study(), "Y|N|Y|0|5;");
  const auto again = Reopened(session->ID());
  RfcHand second(*again);
  EXPECT_EQ(second.cdma3g.optReverseRate.Index(), 4);
  second.cdma3g.chkRestrictReverse.Click();
  Save(*again);
  EXPECT_EQ(Study(), "Y|N|Y|0|5;");
}

TEST_P(RfcStudies, ADatabaseWithoutRestrictionsStoresStudiesWithoutThem) {
  for (const char* column : {"F", "R"}) {
    connection_->ExecuteSql(std::string("ALTER TABLE KIV_RfcStudy DROP COLUMN ") + column);
  }
  const auto session = StoredStudy(kEcp1, 0);
  const auto again = Reopened(session->ID());
  RfcHand hand(*again);
  EXPECT_FALSE(hand.cdma3g.chkRestrictForward.Checked() || hand.cdma3g.chkRestrictReverse.Checked());
  hand.general.txtTag.Type("2");
  Save(*again);
  EXPECT_EQ(Rows("Tag", "KIV_RfcStudy"), "data2;");
  hand.cdma3g.chkRestrictForward.Click();
  EXPECT_THROW(again->Save("ann"), host::DatabaseError);  // told, and nothing is lost
  EXPECT_TRUE(again->Modified());
  EXPECT_EQ(Dns(), "5552|b.rft;");
}

}  // namespace
}  // namespace kiv::client
