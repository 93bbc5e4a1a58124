// Runs the cases beside the window's thread, on an X server of their own.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>

#include <QProcess>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <thread>

#include "support/program_window.h"

namespace {

/// An X server without a screen to look at. It ends with this object, or with this process.
class XServer {
 public:
  XServer() {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process_.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1600x1200x24", "-nolisten", "tcp"});
    if (!process_.waitForStarted()) {
      throw std::runtime_error("Xvfb is not installed; run scripts/setup.sh test.");
    }
    constexpr int kLongestStartMs = 60'000;
    while (!process_.canReadLine()) {
      if (!process_.waitForReadyRead(kLongestStartMs)) throw std::runtime_error("Xvfb does not start.");
    }
  }
  ~XServer() {
    process_.terminate();
    process_.waitForFinished();
  }

  /// As DISPLAY takes it: the server has chosen a number that is free.
  QByteArray Display() { return ':' + process_.readLine().trimmed(); }

 private:
  QProcess process_;
};

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  try {
    XServer server;
    qputenv("DISPLAY", server.Display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const kiv::test::WindowApplication application(argc, argv);
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
