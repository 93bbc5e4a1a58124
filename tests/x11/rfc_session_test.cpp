// An RF call trace study made with a real pointer and a real keyboard, and opened again from the list.

#include "x11/window_session.h"

namespace kiv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A system of the sample network and its ECPs, by instance.
constexpr std::int32_t kSystem = 1001;
constexpr std::int32_t kTracesSeveralDns = 1002;
constexpr std::int32_t kTracesNone = 1064;
constexpr std::int32_t kOfUnknownFeatures = 1095;

constexpr int kDns = 10;

QString Dn(int row) {
  return QString::number(5550000 + 11 * row);
}

TEST_F(WindowSession, AnRfCallTraceStudyOfTenDnsIsRefusedCorrectedStoredAndOpenedAgain) {
  BeginStudy("New &RF Call Trace Study", "Dropped calls");
  user_.DoubleClick(Element(kSystem));
  EXPECT_THAT(
      DragToList(kTracesNone, "dlvwEntity"),
      ElementsAre("The FAF, RF Calltrace (RFCT), is not active on ECP 3. RF Call Trace studies cannot be "
                  "started \r\n"
                  "on this ECP unless this FAF is active. Select another ECP to study or contact your ECP "
                  "\r\n"
                  "administrator to enable RF Calltrace (RFCT) on this ECP."));
  EXPECT_EQ(ListText("dlvwEntity"), "");
  EXPECT_THAT(
      DragToList(kOfUnknownFeatures, "dlvwEntity"),
      ElementsAre(
          "FAF information was not found for ECP:4\r\n"
          "This can be caused by the FAF information being updated or the 'add_omp' script has not be "
          "executed.\r\n"
          "If the the 'add_omp has not been executed, you will need to exit pellavo and run the script.\r\n"
          "The RF Call Trace study can be created once the FAF information is in the Pellavo database."));
  EXPECT_EQ(ListText("dlvwEntity"), "");
  EXPECT_THAT(DragToList(kTracesSeveralDns, "dlvwEntity"), IsEmpty());
  EXPECT_EQ(ListText("dlvwEntity"), "1|1;");
  user_.Fill("txtDuration", "240");
  user_.Fill("txtTag", "night._1");
  user_.Click(RealHand::Widget("chkClearLog"));

  user_.Click(RealHand::Page("tabs", 1));
  user_.Fill("txtPath", QString::fromStdString(folder_.Path()));
  for (int row = 1; row <= kDns; ++row) {
    user_.Fill(QString("txtDirectoryNumber(%1).edit").arg(row), Dn(row));
    user_.Fill(QString("txtFilename(%1)").arg(row), QString("trace%1").arg(row));
  }
  user_.Fill("txtPollingInterval", "4");
  user_.Click(RealHand::Page("tabs", 2));
  user_.Click(RealHand::Widget("chkRestrictReverse"));
  user_.Click(RealHand::Widget("optReverseRate(3)"));
  EXPECT_EQ(RefusalOfSave(), "Polling Interval must be between 5 and 60 seconds inclusive.");
  user_.Fill("txtPollingInterval", "5");  // the refusal has brought its page forward
  Save();

  EXPECT_EQ(Rows("kind, name, duration, polling_interval", "kiv_study"),
            "RF Call Trace Study|Dropped calls|240|5;");
  EXPECT_EQ(Rows("Tag, dBm, ClearLog, MultipleDns, UseEcp, Path, F, R", "KIV_RfcStudy"),
            "night._1|Y|N|Y|Y|" + folder_.Path() + "|0|4;");
  EXPECT_EQ(Rows("InstanceId, SystemId, EcpId", "KIV_Ecp_List"), "1002|1|1;");
  EXPECT_EQ(Rows("*", "KIV_Cell_List"), "");
  std::string dns;
  for (int row = 1; row <= kDns; ++row) {
    dns += Dn(row).toStdString() + "|trace" + std::to_string(row) + ".rft;";
  }
  EXPECT_EQ(Rows("Dn, DataFile", "KIV_RfcDnList"), dns);

  const auto saved = ShownFields();
  EXPECT_EQ(saved.at("txtDirectoryNumber(10).edit"), "5550110");
  EXPECT_EQ(saved.at("txtFilename(10)"), "trace10");
  user_.Press("ctrl+w");
  user_.DoubleClick(RealHand::Row("studies", 0));
  WaitUntil("the study is open again", [] { return RealHand::Find("dlvwEntity") != nullptr; });
  EXPECT_EQ(ShownFields(), saved);
}

}  // namespace
}  // namespace kiv::test
