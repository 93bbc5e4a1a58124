// Opening the HOM editor (three tabs made, loaded, first paint) against the same form written by hand.

#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "client/editor_view.h"
#include "client/study_session.h"
#include "client/window_program.h"
#include "hom/hom_data.h"
#include "plain_hom_form.h"

namespace kiv::bench {
namespace {

using client::Study;

/// Sees a widget being painted.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
  bool Painted() const { return painted_; }
  bool eventFilter(QObject*, QEvent* event) override {
    painted_ = painted_ || event->type() == QEvent::Paint;
    return false;
  }

 private:
  bool painted_ = false;
};

/// Milliseconds from making a window's contents to the end of its first paint.
double TimeToFirstPaint(const std::function<QWidget*()>& make) {
  const auto start = std::chrono::steady_clock::now();
  const std::unique_ptr<QWidget> window(make());
  const PaintWatch watch(*window);
  window->resize(900, 600);
  window->show();
  while (!watch.Painted()) QApplication::processEvents();
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
  return time.count();
}

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

Study StoreStudy(client::StudyStore& store, const std::string& folder) {
  Study study = store.New("HOM Study");
  study.name = "Handoffs downtown";
  study.record->SetScenarioID(store.AddScenario("Downtown"));
  study.record->SetDuration(30);
  const auto data = study.record->SubRecordAs<CKivHomData>();
  data->SetPath(folder);
  data->SetDataFile("h$YY$MM$DD$HH$MI.hom");
  data->SetToAmps("Y");
  store.Save(study, "bench");
  return study;
}

int Run(int argc, char** argv) {
  constexpr int kRounds = 201;
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  client::Application application(argc, argv);
  client::Program program;
  client::StartWithWindow(program);
  program.OpenDatabase(folder.filePath("bench.db").toStdString(), client::Program::WhenMissing::Create);
  const Study study = StoreStudy(program.Store(), folder.path().toStdString());
  const PlainValues values{"Handoffs downtown", {"Downtown"}, folder.path(), "h$YY$MM$DD$HH$MI", "30"};

  std::vector<double> plain;
  std::vector<double> ours;
  for (int round = 0; round < kRounds; ++round) {
    plain.push_back(TimeToFirstPaint([&] { return MakePlainHomForm(values); }));
    ours.push_back(TimeToFirstPaint([&]() -> QWidget* {
      auto session = std::make_unique<client::StudySession>(program.Store(), study);
      return new client::EditorView(program, std::move(session));
    }));
  }
  std::printf("HOM editor, from nothing to first paint (median of %d):\n", kRounds);
  std::printf("  plain Qt widgets %7.2f ms\n", Median(plain));
  std::printf("  this editor      %7.2f ms  ratio %.2f (at most 1.5)\n", Median(ours),
              Median(ours) / Median(plain));
  return 0;
}

}  // namespace
}  // namespace kiv::bench

int main(int argc, char** argv) {
  return kiv::bench::Run(argc, argv);
}
