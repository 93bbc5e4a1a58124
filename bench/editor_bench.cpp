// Opening an editor (its tabs made, loaded, first paint) against the same form written by hand.

#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <vector>

#include "client/window/editor_view.h"
#include "client/window/window_program.h"
#include "hom/hom_data.h"
#include "paint.h"
#include "plain_form.h"
#include "plm/plm_data.h"
#include "session/study_session.h"

namespace kiv::bench {
namespace {

using store::Study;

/// Milliseconds from making a window's contents to the end of its first paint.
double TimeToFirstPaint(const std::function<QWidget*()>& make) {
  std::unique_ptr<QWidget> window;
  const double making = Milliseconds([&] { window.reset(make()); });
  return making + MillisecondsUntilPainted(*window, [&] {
           window->resize(900, 600);
           window->show();
         });
}

store::Study StoreStudy(store::StudyStore& store, const std::string& kind, const std::string& folder,
                        const std::string& file) {
  store::Study study = store.New(kind);
  study.name = "Downtown";
  study.record->SetScenarioID(store.Scenarios().List().front().id);
  study.record->SetDuration(30);
  study.record->SetRetrieveDelay(1);
  if (const auto hom = study.record->SubRecordAs<CKivHomData>()) {
    hom->SetPath(folder);
    hom->SetDataFile(file);
    hom->SetToAmps("Y");
  } else if (const auto plm = study.record->SubRecordAs<CKivPlmData>()) {
    plm->Initialize(0, folder, file, "data");
  }
  store.Save(study, "bench");
  return study;
}

/// Measures both by turns and prints the ratio.
void Compare(client::Program& program, const store::Study& study,
             const std::function<QWidget*()>& makePlain) {
  constexpr int kRounds = 201;
  std::vector<double> plain;
  std::vector<double> ours;
  for (int round = 0; round < kRounds; ++round) {
    plain.push_back(TimeToFirstPaint(makePlain));
    ours.push_back(TimeToFirstPaint([&]() -> QWidget* {
      auto session = std::make_unique<session::StudySession>(program.Store(), study);
      return new client::EditorView(program, std::move(session));
    }));
  }
  std::printf("%s editor, from nothing to first paint (median of %d):\n", study.record->AppName().c_str(),
              kRounds);
  std::printf("  plain Qt widgets %7.2f ms\n", Median(plain));
  std::printf("  this editor      %7.2f ms  ratio %.2f (at most 1.5)\n", Median(ours),
              Median(ours) / Median(plain));
}

int Measure(int argc, char** argv) {
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  client::Application application(argc, argv);
  client::Program program;
  client::StartWithWindow(program);
  program.OpenDatabase(folder.filePath("bench.db").toStdString(), client::Program::WhenMissing::Create);
  program.Store().Scenarios().Add("Downtown");
  struct Kind {
    const char* name;
    QString file;
    QString extension;
    QWidget* (*makePlain)(const PlainValues& values);
  };
  const Kind kinds[] = {{"HOM Study", "h$YY$MM$DD$HH$MI", ".hom", MakePlainHomForm},
                        {"PLM Study", "p$YY$MM$DD$HH$MI", ".plm", MakePlainPlmForm}};
  for (const Kind& kind : kinds) {
    const store::Study study = StoreStudy(program.Store(), kind.name, folder.path().toStdString(),
                                          (kind.file + kind.extension).toStdString());
    Compare(program, study, [&] {
      return kind.makePlain({"Downtown", {"Downtown"}, folder.path(), kind.file, kind.extension, "30"});
    });
  }
  return 0;
}

}  // namespace
}  // namespace kiv::bench

int main(int argc, char** argv) {
  return kiv::bench::Measure(argc, argv);
}
