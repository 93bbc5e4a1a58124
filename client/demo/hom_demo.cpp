// Takes the program through one whole HOM study with a user's keys and clicks, and prints what was stored.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QInputDialog>
#include <QLineEdit>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "client/demo/user_hand.h"
#include "client/editor_view.h"
#include "client/main_window.h"
#include "client/window_program.h"
#include "core/conversions.h"
#include "core/sub_record.h"

namespace kiv::client {
namespace {

constexpr int kUntilMarked = 400;  // live marks follow the typing with a short delay

void Expect(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(std::string("Not as it should be: ") + what);
  std::cout << "  " << what << '\n';
}

QString TextOf(const UserHand& user, const char* box) {
  return qobject_cast<QLineEdit*>(user.Find(QLatin1String(box)))->text();
}

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
  Expect(TextOf(user, "txtDuration") == QLatin1String("45"), "Letters do not get into the duration box.");
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
  Expect(!window.CurrentEditor()->Session().Modified(), "The study is saved.");
  user.Press(Qt::Key_W, Qt::ControlModifier);
  user.Wait(kUntilMarked);
  user.TakePicture("6-list-of-studies");
  user.Find("studies")->setFocus();
  user.Press(Qt::Key_Return);
  Expect(TextOf(user, "txtDuration") == QLatin1String("45"), "Reopened, it shows the saved duration.");
  user.Fill("txtDuration", "90");
  user.ClickTab("tabs", 1);
  user.Choose("cboModeSelection", "CDMA Heat");
  user.Wait(kUntilMarked);
  user.TakePicture("7-changed-to-cdma-heat");
  user.Press(Qt::Key_S, Qt::ControlModifier);
  Expect(!window.CurrentEditor()->Session().Modified(), "The change is saved.");
}

void PrintStoredRow(const Program& program, std::int32_t id) {
  const auto row =
      program.Store().Database().OpenQuery("SELECT * FROM KIV_HomStudy WHERE Id = " + std::to_string(id), 10);
  const Study study = program.Store().Load(id);
  std::cout << "The stored row of KIV_HomStudy:\n";
  for (const NamedValue& field : study.record->SubRecord()->StoredFields()) {
    std::cout << "  " << field.name << " = " << ToText(row->Field(field.name)) << '\n';
  }
  Expect(ToText(row->Field("SoftDrop")) == "Y" && ToText(row->Field("HomMode")) == "2",
         "The row holds the change.");
}

int Run(int argc, char** argv) {
  const QString folder = QDir(QLatin1String(argc > 1 ? argv[1] : "out")).absolutePath();
  QDir().mkpath(folder);
  qputenv("XDG_CONFIG_HOME", (folder + "/settings").toUtf8());  // the user's own settings stay untouched
  QDir(folder + "/settings").removeRecursively();
  const QString databaseFile = folder + "/demo.db";
  QFile::remove(databaseFile);

  Application application(argc, argv);
  Program program;
  StartWithWindow(program);
  MainWindow window(program);
  window.show();
  QApplication::setActiveWindow(&window);
  window.OpenDatabase(databaseFile.toStdString(), Program::WhenMissing::Create);
  const UserHand user(folder);
  user.TakePicture("1-first-start");

  CreateStudy(user, folder);
  SeeRefusal(user);
  CompleteStudy(user);
  ReopenAndChange(user, window);
  PrintStoredRow(program, window.CurrentEditor()->Session().ID());
  std::cout << "Screenshots are in " << QDir::current().relativeFilePath(folder).toStdString() << "/.\n";
  return 0;
}

}  // namespace
}  // namespace kiv::client

int main(int argc, char** argv) {
  try {
    return kiv::client::Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
