#include <QAbstractItemView>
#include <iostream>

#include "client/demo/demo.h"
#include "client/window/editor_view.h"
#include "core/conversions.h"
#include "core/study_kinds.h"

namespace kiv::client {

namespace {

constexpr int kDetailPage = 1;
constexpr int kFirstCell = 2;  // below its system and its ECP

void CreateStudy(MainWindow& window, const UserHand& user, const QString& dataFolder) {
  window.NewStudy(std::string(kVcsStudy));
  user.Fill("studyName", "Events at the harbour");
  user.Choose("fdocCBScenario", "Downtown at night");
  AddFromNetwork(user, "1-1-", kFirstCell, 2);
  user.Fill("txtPath", dataFolder);
  user.Fill("txtDuration", "40");
  user.Wait(kUntilMarked);
  user.TakePicture("22-vcsa-general-page");
  const QString message = user.MessageDuring([&] { user.Click("save"); });
  Expect(message.startsWith(QLatin1String("Study Duration must be between 15 and 480 minutes inclusive")),
         "A duration that is no quarter of an hour is refused.");
  user.Fill("txtDuration", "45");
}

void SeeLimits(const UserHand& user) {
  const QString again = user.MessageDuring([&] { AddFromNetwork(user, "1-1-", kFirstCell, 0); });
  Expect(again == QLatin1String("Cell 1-1-1 is already in the list and will not be added."),
         "A cell is not added twice.");
  const QString tooMany = user.MessageDuring([&] { AddFromNetwork(user, "1-1-", kFirstCell + 3, 7); },
                                             "23-vcsa-too-many-cells-of-an-ecp");
  Expect(tooMany.startsWith(QLatin1String("You have attempted to drop more than 10 cells from ECP 1")),
         "An eleventh cell of one ECP is refused.");
}

void ChooseEvents(const UserHand& user) {
  user.ClickTab("tabs", kDetailPage);
  user.Choose("cboEvent", "All Events AMPS/CDMA (A-M)");
  user.Click("chkEvent(6)");
  for (const char* list : {"dlvwAntenna", "dlvwCarrier"}) {
    user.Click(list);
    user.Press(Qt::Key_Home);
    user.Press(Qt::Key_Space);
  }
  user.Fill("txtSingleDn.edit", "5551234");
  user.Click("chkCarrierData");
  user.Wait(kUntilMarked);
  user.TakePicture("24-vcsa-detail-page");
  user.Press(Qt::Key_S, Qt::ControlModifier);
}

void Reopen(MainWindow& window, const UserHand& user) {
  ReopenSaved(window, user, "25-four-kinds-of-studies");
  Expect(qobject_cast<QAbstractItemView*>(user.Find("dlvwCell"))->model()->rowCount() == 10,
         "Reopened, it shows its ten cells.");
}

void PrintStoredRows(const Program& program, std::int32_t id) {
  const std::string where = " WHERE KIV_List_Id = " + std::to_string(id);
  std::string chosen;
  for (const std::string part : {"Antenna", "Carrier"}) {
    const auto rows = Rows(program, "SELECT * FROM KIV_" + part + "_List" + where + " AND Selected = 'Y'");
    for (; !rows->EndOfFile(); rows->MoveNext()) {
      chosen += "  cell " + ToText(rows->Field("CellId")) + ": " + part + ' ' +
                ToText(rows->Field(part + "Id")) + '\n';
    }
  }
  std::cout << "The stored choices:\n" << chosen;
  Expect(chosen == "  cell 1: Antenna 1\n  cell 1: Carrier 1\n",
         "The chosen antenna and the chosen carrier are stored.");
}

}  // namespace

void ShowVcsaStudy(const Program& program, MainWindow& window, const UserHand& user,
                   const QString& dataFolder) {
  CreateStudy(window, user, dataFolder);
  SeeLimits(user);
  ChooseEvents(user);
  Reopen(window, user);
  PrintStoredRows(program, window.CurrentEditor()->Session().ID());
  user.Press(Qt::Key_W, Qt::ControlModifier);
}

}  // namespace kiv::client
