// A VCSA study made with a real pointer and a real keyboard: from the tree into the file.

#include "x11/window_session.h"

namespace kiv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Cells of ECP 1-1 in the sample network, by instance; they stand in the tree in this order.
constexpr std::int32_t kCell1 = 1003;
constexpr std::int32_t kCell2 = 1004;
constexpr std::int32_t kCell4 = 1005;
constexpr std::int32_t kCell5 = 1006;
constexpr std::int32_t kCell12 = 1013;

TEST_F(WindowSession, AVcsaStudyOfDraggedCellsIsStoredAndItsLimitsHold) {
  BeginStudy("New &VCSA Study", "Events at the harbour");
  SearchNetwork("1-1-");
  for (const std::int32_t cell : {kCell4, kCell1, kCell2}) {
    EXPECT_THAT(DragToList(cell, "dlvwCell"), IsEmpty());
  }
  const std::string threeCells = "1|1|4|AMPS/CDMA;1|1|1|CDMA;1|1|2|AMPS;";
  EXPECT_EQ(ListText("dlvwCell"), threeCells);

  user_.Fill("txtPath", QString::fromStdString(folder_.Path()));
  user_.Fill("txtDuration", "100");
  user_.Fill("txtRetrieveDelay", "20");
  EXPECT_EQ(RefusalOfSave(),
            "Study Duration must be between 15 and 480 minutes inclusive and \r\n"
            "expressed in increments of quarter hours (15, 30, 45,etc).");
  user_.Fill("txtDuration", "105");

  user_.Click(RealHand::Page("tabs", 1));
  user_.Choose("cboEvent", "All Events AMPS/TDMA (A-F)");
  user_.Click(RealHand::Widget("chkEvent(12)"));
  user_.Click(RealHand::Widget("chkEvent(1)"));
  user_.Click(RealHand::RowBox("dlvwAntenna", 1));  // 2 of cell 4
  user_.Click(RealHand::RowBox("dlvwCarrier", 0));  // 1 of cell 4, which the next one takes back
  user_.Click(RealHand::RowBox("dlvwCarrier", 2));
  user_.Click(RealHand::RowBox("dlvwCarrier", 4));  // 2 of cell 1
  user_.Fill("txtSingleDn.edit", "5551234");
  user_.Fill("txtPollingInterval", "300");
  user_.Click(RealHand::Widget("chkCarrierData"));
  Save();

  EXPECT_EQ(Rows("kind, name, duration, polling_interval, retrieve_delay", "kiv_study"),
            "VCSA Study|Events at the harbour|105|300|20;");
  EXPECT_EQ(Rows("Path, DataFile, SingleDn, DirectionalSetup, CarrierData", "KIV_VcsStudy"),
            folder_.Path() + "|v$YY$MM$DD$HH$MI.vcs|5551234|N|Y;");
  EXPECT_EQ(Rows("EventA, EventB, EventC, EventD, EventE, EventF, EventG, EventH, EventI, EventJ, EventK, "
                 "EventL, EventM",
                 "KIV_VcsStudy"),
            "Y|N|Y|Y|Y|Y|N|N|N|N|N|N|Y;");
  EXPECT_EQ(Rows("InstanceId, SystemId, EcpId, CellId", "KIV_Cell_List"),
            "1003|1|1|1;1004|1|1|2;1005|1|1|4;");
  EXPECT_EQ(Rows("InstanceId, SystemId, EcpId, CellId, AntennaId, Selected", "KIV_Antenna_List"),
            "1376|1|1|1|1|N;1377|1|1|1|2|N;1378|1|1|1|3|N;"
            "1379|1|1|2|1|N;1380|1|1|2|2|N;1381|1|1|2|3|N;"
            "1382|1|1|4|1|N;1383|1|1|4|2|Y;1384|1|1|4|3|N;");
  EXPECT_EQ(Rows("InstanceId, SystemId, EcpId, CellId, CarrierId, Selected", "KIV_Carrier_List"),
            "0|1|1|1|1|N;0|1|1|1|2|Y;0|1|1|4|1|N;0|1|1|4|2|N;0|1|1|4|3|Y;");

  user_.Click(RealHand::Page("tabs", 0));
  EXPECT_THAT(DragToList(kCell1, "dlvwCell"),
              ElementsAre("Cell 1-1-1 is already in the list and will not be added."));
  EXPECT_EQ(ListText("dlvwCell"), threeCells);
  // Eight more, of which there is room for seven.
  user_.Click(Element(kCell5));
  user_.ClickWith("shift", Element(kCell12));
  EXPECT_THAT(DragToList(kCell5, "dlvwCell"),
              ElementsAre("You have attempted to drop more than 10 cells from ECP 1\r\n"
                          "VCSA engineering guide lines recommend that no more than 10 cells \r\n"
                          "from the same ECP be studied at the same time. The cells \r\n"
                          "have not been added to the list."));
  EXPECT_EQ(ListText("dlvwCell"), threeCells +
                                      "1|1|5|TDMA;1|1|6|CDMA;1|1|7|AMPS/TDMA;1|1|8|TDMA;1|1|9|AMPS/CDMA;"
                                      "1|1|10|TDMA;1|1|11|TDMA;");
}

}  // namespace
}  // namespace kiv::test
