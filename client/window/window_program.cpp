#include "client/window/window_program.h"

#include <exception>
#include <iostream>

#include "client/window/dialogs.h"
#include "client/window/main_window.h"
#include "client/window/messages.h"
#include "qt/beeper.h"
#include "qt/folder_chooser.h"
#include "qt/message_box.h"

namespace kiv::client {

namespace {

std::optional<std::string> AskForScenarioName() {
  return AskForName(QApplication::activeWindow(), QStringLiteral("New Scenario"),
                    QStringLiteral("&Name of the scenario:"));
}

/// Without a display Qt would end the program with a message for programmers.
bool HasDisplay() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
  const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
#else
  return true;
#endif
}

}  // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& error) {
    TellFailure(error);
    return true;
  }
}

void StartWithWindow(Program& program) {
  program.Start({.messageBoxes = std::make_shared<qt::MessageBoxes>(
                     [&program] { return program.Settings().ApplicationTitle(); }),
                 .folderChooser = std::make_shared<qt::FolderChooser>(),
                 .beeper = std::make_shared<qt::Beeper>(),
                 .askForScenarioName = AskForScenarioName,
                 .tellFailure = TellFailure});
}

int RunWindow(int argc, char** argv, const WindowRequest& request) {
  if (!HasDisplay()) {
    std::cerr << "The window needs a display, and there is none. Start it on a desktop, or use the commands: "
                 "kivstudy --help\n";
    return kRefused;
  }
  const Application application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("kivstudy"));
  Program program;
  StartWithWindow(program);
  MainWindow window(program);
  window.show();
  if (request.database) {
    window.OpenDatabase(*request.database, Program::WhenMissing::Refuse);
  } else {
    window.OpenDatabase(Program::DefaultDatabasePath(), Program::WhenMissing::Create);
  }
  return QApplication::exec() == 0 ? kOk : kRefused;
}

}  // namespace kiv::client
