#pragma once

#include <QApplication>
#include <QSocketNotifier>
#include <memory>

#include "client/arguments.h"
#include "client/program.h"

namespace kiv::client {

class MainWindow;

/// The application object. What escapes an event handler is told to the user instead of ending the program.
class Application : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

/// Gives the program the dialogs of the window.
void StartWithWindow(Program& program);

/// Ends the window when the system ends the program, by a signal or with the session: unsaved input is kept.
class EndOfProgram : public QObject {
 public:
  explicit EndOfProgram(MainWindow& window);
  ~EndOfProgram() override;

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

/// Opens the main window and runs until it is closed. Returns an ExitCode.
int RunWindow(int argc, char** argv, const WindowRequest& request);

}  // namespace kiv::client
