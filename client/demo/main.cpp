// Takes the program through one whole study of each kind with a user's keys and clicks, and prints what was
// stored.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "client/demo/demo.h"
#include "client/window/editor_view.h"
#include "client/window/window_program.h"

namespace kiv::client {

void Expect(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(std::string("Not as it should be: ") + what);
  std::cout << "  " << what << '\n';
}

std::shared_ptr<host::Recordset> Rows(const Program& program, const std::string& query) {
  constexpr int kTimeoutSeconds = 10;
  return program.Store().Database().OpenQuery(query, kTimeoutSeconds);
}

void ReopenSaved(const MainWindow& window, const UserHand& user, const QString& pictureOfList) {
  Expect(!window.CurrentEditor()->Session().Modified(), "The study is saved.");
  user.Press(Qt::Key_W, Qt::ControlModifier);
  if (!pictureOfList.isEmpty()) user.TakePicture(pictureOfList);
  user.Find("studies")->setFocus();
  user.Press(Qt::Key_Return);
}

namespace {

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

  std::cout << "A HOM study:\n";
  ShowHomStudy(program, window, user, folder);
  std::cout << "A PLM study:\n";
  ShowPlmStudy(program, window, user, folder);
  std::cout << "A network:\n";
  ShowNetworkImport(window, user);
  std::cout << "An RF call trace study:\n";
  ShowRfcStudy(program, window, user, folder);
  std::cout << "A VCSA study:\n";
  ShowVcsaStudy(program, window, user, folder);
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
