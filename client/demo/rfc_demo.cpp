#include <iostream>

#include "client/demo/demo.h"
#include "client/window/editor_view.h"
#include "core/conversions.h"
#include "core/study_kinds.h"

namespace kiv::client {

namespace {

constexpr int kDetailPage = 1;
constexpr int kRatesPage = 2;
constexpr int kDns = 5;
constexpr int kEcp = 1;  // below its system

void CreateStudy(MainWindow& window, const UserHand& user) {
  window.NewStudy(std::string(kRfcStudy));
  user.Fill("studyName", "Dropped calls");
  user.Choose("fdocCBScenario", "Downtown at night");
  const QString message =
      user.MessageDuring([&] { AddFromNetwork(user, "1-3", kEcp, 0); }, "17-rfc-ecp-without-the-feature");
  Expect(message.startsWith(QLatin1String("The FAF, RF Calltrace (RFCT), is not active on ECP 3.")),
         "An ECP that cannot trace calls is refused.");
  AddFromNetwork(user, "1-1", kEcp, 0);
  user.Fill("txtTag", "night_1");
  user.Wait(kUntilMarked);
  user.TakePicture("18-rfc-general-page");
}

void EnterDns(const UserHand& user, const QString& dataFolder) {
  user.ClickTab("tabs", kDetailPage);
  user.Fill("txtPath", dataFolder);
  for (int row = 1; row <= kDns; ++row) {
    user.Fill(QStringLiteral("txtDirectoryNumber(%1).edit").arg(row), QStringLiteral("555000%1").arg(row));
    user.Fill(QStringLiteral("txtFilename(%1)").arg(row), QStringLiteral("trace%1").arg(row));
  }
  user.Wait(kUntilMarked);
  user.TakePicture("19-rfc-too-short-an-interval");
  const QString message = user.MessageDuring([&] { user.Press(Qt::Key_S, Qt::ControlModifier); });
  Expect(message == QLatin1String("Polling Interval must be between 3 and 60 seconds inclusive."),
         "Five DNs need a longer interval.");
  user.Fill("txtPollingInterval", "3");
}

void RestrictRate(const UserHand& user) {
  user.ClickTab("tabs", kRatesPage);
  user.Click("chkRestrictReverse");
  user.Click("optReverseRate(3)");
  user.Wait(kUntilMarked);
  user.TakePicture("20-rfc-cdma-3g-page");
  user.Press(Qt::Key_S, Qt::ControlModifier);
}

void Reopen(MainWindow& window, const UserHand& user) {
  ReopenSaved(window, user);
  user.ClickTab("tabs", kDetailPage);
  Expect(user.TextOf("txtDirectoryNumber(5).edit") == QLatin1String("5550005"),
         "Reopened, it shows its DNs.");
  user.TakePicture("21-rfc-reopened");
}

void PrintStoredRows(const Program& program, std::int32_t id) {
  const auto rows = Rows(program, "SELECT * FROM KIV_RfcDnList WHERE Id = " + std::to_string(id));
  std::cout << "The traced DNs and their data files:\n";
  Expect(rows->RecordCount() == kDns, "Each DN has its row.");
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    std::cout << "  " << ToText(rows->Field("Dn")) << ": " << ToText(rows->Field("DataFile")) << '\n';
  }
}

}  // namespace

void ShowRfcStudy(const Program& program, MainWindow& window, const UserHand& user,
                  const QString& dataFolder) {
  CreateStudy(window, user);
  EnterDns(user, dataFolder);
  RestrictRate(user);
  Reopen(window, user);
  PrintStoredRows(program, window.CurrentEditor()->Session().ID());
  user.Press(Qt::Key_W, Qt::ControlModifier);
}

}  // namespace kiv::client
