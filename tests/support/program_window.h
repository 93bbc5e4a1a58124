#pragma once

#include <memory>

#include "client/window/main_window.h"
#include "client/window/window_program.h"
#include "client/window/window_settings.h"
#include "support/temp_folder.h"

namespace kiv::test {

/// The application object of a test program: without a display unless one is named, and with settings of its
/// own.
class WindowApplication {
 public:
  WindowApplication(int& argc, char** argv) : application_(Prepared(argc), argv) {}

 private:
  int& Prepared(int& argc) const {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", settings_.Path().c_str());  // Qt asks once in a process where settings are
    qputenv("XDG_DATA_HOME", settings_.Path().c_str());
    return argc;
  }

  const TempFolder settings_;
  const client::Application application_;
};

/// The program with its window, as a user finds it who has chosen nothing yet.
struct ProgramWindow {
  ProgramWindow() {
    client::StartWithWindow(program);
    client::WindowSettings(program.Settings()).clear();
    window = std::make_unique<client::MainWindow>(program);
    window->show();
    QApplication::setActiveWindow(window.get());
  }

  client::Program program;
  std::unique_ptr<client::MainWindow> window;
};

}  // namespace kiv::test
