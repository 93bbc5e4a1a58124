#include <iostream>

#include "client/demo/demo.h"
#include "client/window/editor_view.h"
#include "core/conversions.h"
#include "core/sub_record.h"

namespace kiv::client {

namespace {

void CreateStudy(const UserHand& user, const QString& dataFolder) {
  user.Press(Qt::Key_N, Qt::ControlModifier);
  user.Fill("studyName", "Handoffs downtown");
  user.During([&] { user.Click("cmdNewScenario"); },
              [&](QWidget&) {
                user.Type("Downtown at night");
                user.Press(Qt::Key_Return);
              });
  user.Fill("txtPath", dataFolder);
  user.Fill("txtDuration", "5");
  user.Wait(kUntilMarked);
  user.TakePicture("2-general-page-with-a-wrong-duration");
}

void SeeRefusal(const UserHand& user) {
  const QString message = user.MessageDuring([&] { user.Click("save"); }, "3-refused");
  Expect(message == QLatin1String("Study Duration must be between 10 and 1439 minutes inclusive."),
         "A duration of 5 minutes is refused.");
  Expect(user.Find("txtDuration")->hasFocus(), "The cursor waits in the duration box.");
}

void CompleteStudy(const UserHand& user) {
  user.Fill("txtDuration", "a4b5c");
  Expect(user.TextOf("txtDuration") == QLatin1String("45"), "Letters do not get into the duration box.");
  user.ClickTab("tabs", 1);
  user.Click("chkCDMA(0)");
  user.Click("chkCDMA(3)");
  user.Wait(kUntilMarked);
  user.TakePicture("4-detail-page");
  user.ClickTab("tabs", 2);
  user.Click("chkCollectData");
  user.Fill("txtCurStdPath", "/omp/current");
  user.Fill("txtCurStdDatafile", "c$YY$MM$DD$HH$MI");
  user.Wait(kUntilMarked);
  user.TakePicture("5-current-study-page");
  user.Press(Qt::Key_S, Qt::ControlModifier);
}

void ReopenAndChange(const UserHand& user, MainWindow& window) {
  ReopenSaved(window, user, "6-list-of-studies");
  Expect(user.TextOf("txtDuration") == QLatin1String("45"), "Reopened, it shows the saved duration.");
  user.Fill("txtDuration", "90");
  user.ClickTab("tabs", 1);
  user.Choose("cboModeSelection", "CDMA Heat");
  user.Wait(kUntilMarked);
  user.TakePicture("7-changed-to-cdma-heat");
  user.Press(Qt::Key_S, Qt::ControlModifier);
  Expect(!window.CurrentEditor()->Session().Modified(), "The change is saved.");
}

void PrintStoredRow(const Program& program, std::int32_t id) {
  const auto row = Rows(program, "SELECT * FROM KIV_HomStudy WHERE Id = " + std::to_string(id));
  const store::Study study = program.Store().Load(id);
  std::cout << "The stored row of KIV_HomStudy:\n";
  for (const NamedValue& field : study.record->SubRecord()->StoredFields()) {
    std::cout << "  " << field.name << " = " << ToText(row->Field(field.name)) << '\n';
  }
  Expect(ToText(row->Field("SoftDrop")) == "Y" && ToText(row->Field("HomMode")) == "2",
         "The row holds the change.");
}

}  // namespace

void ShowHomStudy(const Program& program, MainWindow& window, const UserHand& user,
                  const QString& dataFolder) {
  CreateStudy(user, dataFolder);
  SeeRefusal(user);
  CompleteStudy(user);
  ReopenAndChange(user, window);
  PrintStoredRow(program, window.CurrentEditor()->Session().ID());
  user.Press(Qt::Key_W, Qt::ControlModifier);
}

}  // namespace kiv::client
