#include <QComboBox>
#include <QPlainTextEdit>
#include <iostream>

#include "client/demo/demo.h"
#include "client/window/editor_view.h"
#include "core/conversions.h"
#include "core/study_kinds.h"

namespace kiv::client {

namespace {

constexpr int kCdmaPage = 1;
constexpr int kTdmaPage = 2;

void CreateStudy(MainWindow& window, const UserHand& user, const QString& dataFolder) {
  window.NewStudy(std::string(kPlmStudy));
  user.Fill("studyName", "Error rates downtown");
  user.Choose("fdocCBScenario", "Downtown at night");
  user.Fill("txtPath", dataFolder);
  user.Fill("txtRetrieveDelay", "5");
  user.Wait(kUntilMarked);
  user.TakePicture("8-plm-general-page");
}

void ChooseCdmaModes(const UserHand& user) {
  user.ClickTab("tabs", kCdmaPage);
  user.Wait(kUntilMarked);
  user.TakePicture("9-plm-cdma-page-at-first");
  user.Click("chkMode(0)");
  user.Fill("txtCarrier", "4");
  const QString refused = user.MessageDuring([&] { user.Click("obModeSelector(4)"); });
  Expect(refused == QLatin1String("Service Option is a required value."),
         "A mode is not left without its service option.");
  user.Choose("cboServiceOption", "(13k) 2G Voice 13K RC2");
  user.Click("chkMode(4)");
  user.Fill("txtCarrier", "7");
  user.Choose("cboGenerationType", "(3Gv) 3G1X Voice");
  const QString third = user.MessageDuring([&] { user.Click("chkMode(8)"); }, "10-plm-third-cdma-mode");
  Expect(third == QLatin1String("Only two CDMA modes are allowed for one study."),
         "A third CDMA mode is refused.");
  user.Fill("txtCarrier", "19");
  user.Wait(kUntilMarked);
  user.TakePicture("11-plm-wrong-carrier");
  user.Fill("txtCarrier", "7");
}

void ChooseTdmaModes(const UserHand& user) {
  user.ClickTab("tabs", kTdmaPage);
  user.Click("chkMode(1)");
  user.Fill("txtAmps", "3");
  user.Wait(kUntilMarked);
  user.TakePicture("12-plm-automatic-mode");
  user.Click("chkMode(4)");
  user.Choose("cboMethod", "Manual Method");
  user.Click("txtChannelList");
  user.Type("312");
  user.Press(Qt::Key_Return);
  user.Type("313");
  user.Press(Qt::Key_Return);
  user.Type("313");
  user.Wait(kUntilMarked);
  user.TakePicture("13-plm-duplicate-channel");
  const QString duplicate = user.MessageDuring([&] { user.Press(Qt::Key_S, Qt::ControlModifier); });
  Expect(duplicate == QLatin1String("Channel 313 is a duplicate."), "A channel given twice is refused.");
  user.Press(Qt::Key_Backspace);
  user.Type("4");
  user.Wait(kUntilMarked);
  user.TakePicture("14-plm-manual-mode");
  user.Press(Qt::Key_S, Qt::ControlModifier);
}

void ReopenAndChange(MainWindow& window, const UserHand& user) {
  ReopenSaved(window, user);
  Expect(user.TextOf("txtRetrieveDelay") == QLatin1String("5"), "Reopened, it shows the saved delay.");
  user.ClickTab("tabs", kTdmaPage);
  user.Click("obModeSelector(4)");
  Expect(qobject_cast<QPlainTextEdit*>(user.Find("txtChannelList"))->toPlainText() ==
             QLatin1String("312\n313\n314\n"),
         "Reopened, the manual mode shows its channels.");
  user.Click("chkMode(1)");
  user.Wait(kUntilMarked);
  user.TakePicture("15-plm-reopened");
  user.Press(Qt::Key_S, Qt::ControlModifier);
  Expect(!window.CurrentEditor()->Session().Modified(), "The change is saved.");
}

void PrintStoredRows(const Program& program, std::int32_t id) {
  const std::string where = " WHERE Id = " + std::to_string(id);
  std::cout << "The stored modes and channels:\n";
  const auto modes = Rows(program, "SELECT * FROM KIV_PlmMode" + where + " ORDER BY PlmMode");
  std::string numbers;
  for (; !modes->EndOfFile(); modes->MoveNext()) {
    numbers += ToText(modes->Field("PlmMode")) + " ";
    std::cout << "  mode " << ToText(modes->Field("PlmMode"));
    for (const char* column : {"Carrier", "ServiceOption", "GenerationType", "SelectionMethod"}) {
      const std::string value = ToText(modes->Field(column));
      if (!value.empty()) std::cout << ", " << column << ' ' << value;
    }
    std::cout << '\n';
  }
  Expect(numbers == "5 7 11 ", "The mode that was taken out is gone, the others are stored.");
  const auto channels = Rows(program, "SELECT * FROM KIV_PlmChannelList" + where + " ORDER BY Channel");
  std::string list;
  for (; !channels->EndOfFile(); channels->MoveNext()) {
    list += ToText(channels->Field("PlmMode")) + ":" + ToText(channels->Field("Channel")) + " ";
  }
  Expect(list == "5:312 5:313 5:314 ", "So are the channels of the manual mode.");
}

}  // namespace

void ShowPlmStudy(const Program& program, MainWindow& window, const UserHand& user,
                  const QString& dataFolder) {
  CreateStudy(window, user, dataFolder);
  ChooseCdmaModes(user);
  ChooseTdmaModes(user);
  ReopenAndChange(window, user);
  PrintStoredRows(program, window.CurrentEditor()->Session().ID());
  user.Press(Qt::Key_W, Qt::ControlModifier);
}

}  // namespace kiv::client
