// kivstudy_monkey: the program's window in the hands of a monkey. Ends with 1 when anything went wrong.

#include <unistd.h>

#include <QApplication>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string_view>
#include <thread>

#include "client/window/window_program.h"
#include "client/window/window_settings.h"
#include "monkey/monkey.h"
#include "samples/network_maker.h"
#include "session/study_session.h"
#include "store/network/network_import.h"
#include "support/rich_studies.h"
#include "support/temp_folder.h"

namespace kiv::test {
namespace {

struct Request {
  int events = 1500;
  std::uint64_t seed = 20261121;
};

Request Read(int argc, char** argv) {
  Request request;
  for (int i = 1; i + 1 < argc; i += 2) {
    const std::string_view name = argv[i];
    if (name == "--events") request.events = std::stoi(argv[i + 1]);
    if (name == "--seed") request.seed = std::stoull(argv[i + 1]);
  }
  return request;
}

const Monkey* player = nullptr;

/// What was done last, before the process ends as it would have.
void TellStory(int signal) {
  if (player) {
    const std::string story = player->Story();
    [[maybe_unused]] const auto written = write(STDERR_FILENO, story.data(), story.size());
  }
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

/// Ends the process when the window takes no more input.
class Watchdog {
 public:
  explicit Watchdog(const Monkey& monkey)
      : thread_([this, &monkey](const std::stop_token& stop) { Watch(monkey, stop); }) {}

 private:
  static constexpr int kPatience = 120;  // seconds; generous, because a sanitizer is slow

  void Watch(const Monkey& monkey, const std::stop_token& stop) {
    int done = -1;
    int seconds = 0;
    while (!stop.stop_requested()) {
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
      if (monkey.Done() != done) {
        done = monkey.Done();
        seconds = 0;
      } else if (++seconds > kPatience * 5) {
        std::cerr << "The window hangs.\n";
        std::abort();
      }
    }
  }

  std::jthread thread_;
};

void FillStore(client::Program& program, const TempFolder& folder) {
  const std::string network = folder.File("network");
  samples::WriteNetwork({.systems = 2, .ecps = 4, .cells = 60}, network);
  store::ImportNetwork(program.Store().Database(), network);
  program.Store().Scenarios().Add("Downtown");
  program.Store().Scenarios().Add("Harbour");
  for (const std::string& kind : RichKinds()) {
    for (const int variant : {1, 2}) {
      store::Study study = program.Store().New(kind);
      Fill(study, variant);
      program.Store().Save(study, "monkey");
    }
  }
}

/// Every study can still be read and shown by its tabs.
void CheckStore(client::Program& program) {
  std::size_t studies = 0;
  for (const store::StudySummary& summary : program.Store().List()) {
    session::StudySession session(program.Store(), program.Store().Load(summary.id));
    ++studies;
  }
  std::cout << studies << " studies load.\n";
}

void Run(const Request& request) {
  const TempFolder folder;
  const std::string database = folder.File("studies.db");
  client::Program program;
  client::StartWithWindow(program);
  client::WindowSettings(program.Settings()).clear();
  {
    client::MainWindow window(program);
    window.show();
    window.OpenDatabase(database, client::Program::WhenMissing::Create);
    FillStore(program, folder);
    window.OpenDatabase(database, client::Program::WhenMissing::Refuse);
    Monkey monkey(program, window, request.seed);
    player = &monkey;
    const Watchdog watchdog(monkey);
    monkey.Play(request.events);
    player = nullptr;
    for (const auto& [name, count] : monkey.Counts()) std::cout << name << ' ' << count << "  ";
    std::cout << '\n';
  }
  program.Use(client::Program::Connect(database, client::Program::WhenMissing::Refuse));
  CheckStore(program);
}

}  // namespace
}  // namespace kiv::test

int main(int argc, char** argv) {
  const auto request = kiv::test::Read(argc, argv);
  std::cout << "kivstudy_monkey --events " << request.events << " --seed " << request.seed << std::endl;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const kiv::test::TempFolder settings;
  qputenv("XDG_CONFIG_HOME", settings.Path().c_str());
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE}) std::signal(signal, kiv::test::TellStory);
  const kiv::client::Application application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    kiv::test::Run(request);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
