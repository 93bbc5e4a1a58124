// Runs the cases beside the window's thread, on an X server of their own.

#include <gtest/gtest.h>

#include <exception>
#include <iostream>
#include <thread>

#include "client/window/window_program.h"
#include "support/temp_folder.h"
#include "x11/x_server.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  try {
    const kiv::test::XServer server;
    const kiv::test::TempFolder settings;  // the user's own stay untouched
    qputenv("DISPLAY", QByteArray::fromStdString(server.Display()));
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(settings.Path()));
    kiv::client::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    std::thread user([] {
      const int failed = RUN_ALL_TESTS();
      QMetaObject::invokeMethod(
          qApp, [failed] { QApplication::exit(failed); }, Qt::QueuedConnection);
    });
    const int result = QApplication::exec();
    user.join();
    return result;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
