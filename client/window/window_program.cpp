#include "client/window/window_program.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <exception>
#include <iostream>

#include "client/window/dialogs.h"
#include "client/window/main_window.h"
#include "client/window/messages.h"
#include "client/window/wait_box.h"
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

constexpr int kEndSignals[] = {SIGTERM, SIGINT, SIGHUP};
int signalPipe[2] = {-1, -1};

void NoteSignal(int /*number*/) {
  // A handler may do next to nothing; the window does the rest when it comes to it.
  static_cast<void>(!write(signalPipe[1], "x", 1));
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
                 .tellFailure = TellFailure,
                 .waitHandler = [box = std::make_shared<WaitBox>()](const database::Wait& wait) {
                   return box->GoOn(wait);
                 }});
}

EndOfProgram::EndOfProgram(MainWindow& window) {
  if (pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) == 0) {
    notifier_ = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this, &window] {
      char byte = 0;
      while (read(signalPipe[0], &byte, 1) == 1) continue;
      if (window.EndKeepingInput()) QApplication::exit(0);
    });
    for (const int number : kEndSignals) std::signal(number, NoteSignal);
  }
  connect(qApp, &QGuiApplication::commitDataRequest, this, [&window] { window.KeepUnsaved(); });
}

EndOfProgram::~EndOfProgram() {
  for (const int number : kEndSignals) std::signal(number, SIG_DFL);
  notifier_.reset();
  for (const int end : signalPipe) close(end);
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
  const EndOfProgram endOfProgram(window);
  if (request.database) {
    window.OpenDatabase(*request.database, Program::WhenMissing::Refuse);
  } else {
    window.OpenDatabase(Program::DefaultDatabasePath(), Program::WhenMissing::Create);
  }
  return QApplication::exec() == 0 ? kOk : kRefused;
}

}  // namespace kiv::client
