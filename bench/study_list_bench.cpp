// A list of 100,000 studies in the window: for how long the window does not answer while it opens, filters
// and sorts them.

#include <QEventLoop>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "client/window/main_window.h"
#include "client/window/study_list.h"
#include "client/window/window_program.h"
#include "database/open.h"
#ifdef KIV_WITH_POSTGRES
#include "support/postgres_server.h"
#endif
#include "timing.h"

namespace kiv::bench {
namespace {

using namespace std::chrono_literals;

constexpr int kStudies = 100'000;
constexpr int kRounds = 9;

/// The longest time for which an event loop did not come round.
class LoopWatch {
 public:
  LoopWatch() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Take(); });
    timer_.start(0);
  }
  double Longest() {
    Take();
    return longest_;
  }

 private:
  void Take() {
    const auto now = std::chrono::steady_clock::now();
    longest_ = std::max(longest_, std::chrono::duration<double, std::milli>(now - last_).count());
    last_ = now;
  }

  QTimer timer_;
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
  double longest_ = 0;
};

struct Times {
  std::vector<double> whole;
  std::vector<double> blocked;
};

/// Does something in the event loop and lets that run until all is done and painted.
void Measure(Times& times, const std::function<void()>& action, const std::function<bool()>& done) {
  QEventLoop loop;
  LoopWatch watch;
  QTimer::singleShot(0, &loop, action);
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] {
    if (done()) loop.quit();
  });
  times.whole.push_back(Milliseconds([&] {
    look.start(0);
    loop.exec();
    QApplication::processEvents();
  }));
  times.blocked.push_back(watch.Longest());
}

void FillDatabase(const std::string& name) {
  const auto database = database::OpenStudyDatabase(name, database::OpenMode::CreateIfMissing);
  const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ";
  database->ExecuteSql(numbers + "200) INSERT INTO kiv_scenario (name) SELECT 'Scenario ' || i FROM n");
  database->ExecuteSql(
      numbers + std::to_string(kStudies) +
      ") INSERT INTO kiv_study (kind, name, scenario_id, duration, polling_interval, retrieve_delay, "
      "revision, "
      "modified_by, modified_at) SELECT CASE i % 2 WHEN 0 THEN 'HOM store::Study' ELSE 'PLM store::Study' "
      "END, "
      "'Handoffs of cluster ' || (i * 7919 % 100000), 1 + i % 200, 10 + i % 1400, -1, -1, 1, "
      "'user' || (i % 30), '2026-0' || (1 + i % 9) || '-1' || (i % 7) || 'T0' || (i % 8) || ':05:00Z' FROM "
      "n");
}

void Print(const char* what, const Times& times) {
  std::printf(
      "  %-28s %7.1f ms; the window answers within %5.1f ms, in the worst round %5.1f ms (at most 100)\n",
      what, Median(times.whole), Median(times.blocked), std::ranges::max(times.blocked));
}

int MeasureDatabase(const char* engine, const std::string& name) {
  FillDatabase(name);
  client::Program program;
  client::StartWithWindow(program);
  Times open, refresh, word, nothing;
  std::vector<Times> sorts(client::StudyTable::kColumnCount);
  for (int round = 0; round < kRounds; ++round) {
    client::MainWindow window(program);
    window.show();
    QApplication::processEvents();
    auto& list = window.List();
    const auto& reader = list.Reader();
    const auto complete = [&] {
      return list.StudyCount() == kStudies && reader.CurrentState() == client::StudyReader::State::Complete;
    };
    const auto always = [] { return true; };
    Measure(
        open, [&] { window.OpenDatabase(name, client::Program::WhenMissing::Refuse); }, complete);
    Measure(
        refresh, [&] { list.Reader().Start(); }, complete);
    auto* box = list.findChild<QLineEdit*>();
    Measure(
        word, [&] { box->setText("cluster 77"); }, always);
    Measure(
        nothing, [&] { box->clear(); }, always);
    for (int column = 0; column < client::StudyTable::kColumnCount; ++column) {
      Measure(
          sorts[static_cast<std::size_t>(column)],
          [&] { list.View().sortByColumn(column, Qt::DescendingOrder); }, always);
    }
    if (list.View().model()->rowCount() != kStudies) return 1;
  }
  std::printf("List of 100,000 studies in the window on %s (median of %d):\n", engine, kRounds);
  Print("opening the database", open);
  Print("reading the list again", refresh);
  Print("finding words", word);
  Print("showing all again", nothing);
  const auto slowest =
      std::ranges::max_element(sorts, {}, [](const Times& times) { return Median(times.blocked); });
  Print("sorting by the slowest column", *slowest);
  return 0;
}

int Run(int argc, char** argv) {
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  int result = 0;
#ifdef KIV_WITH_POSTGRES
  test::PostgresServer server(test::PostgresServer::Use::Measurements);
#endif
  const client::Application application(argc, argv);
  result = MeasureDatabase("SQLite", folder.filePath("bench.db").toStdString());
#ifdef KIV_WITH_POSTGRES
  if (result == 0) result = MeasureDatabase("PostgreSQL", server.NewDatabase());
#endif
  return result;
}

}  // namespace
}  // namespace kiv::bench

int main(int argc, char** argv) {
  return kiv::bench::Run(argc, argv);
}
