// Saving and reloading a PLM study with four manual modes of 1,999 channels each, against plain structs.

#include <sqlite3.h>

#include <QTemporaryDir>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "client/program.h"
#include "plain_plm.h"
#include "plain_sqlite.h"
#include "plm/mode_names.h"
#include "plm/plm_data.h"
#include "timing.h"

namespace kiv::bench {
namespace {

constexpr int kRounds = 31;
constexpr std::int32_t kModes[] = {2, 3, 5, 6};
constexpr std::int32_t kChannels = 1999;

store::Study StoreStudy(store::StudyStore& store) {
  store::Study study = store.New("PLM Study");
  study.name = "All channels";
  CKivPlmData& data = *study.record->PlmData();
  data.Initialize(0, "/data", "p$YY$MM$DD$HH$MI.plm", "data");
  for (const std::int32_t number : kModes) {
    const auto mode = std::make_shared<CKivPlmMode>();
    mode->Initialize(0, number, -1, -1, -1, "Manual", 5, 5, 10, "Expand", "Member", "Begin", 1, 1999, "N",
                     true);
    for (std::int32_t channel = 1; channel <= kChannels; ++channel) {
      mode->AddChannel(0, 0, channel, ChannelKey(std::to_string(channel)));
    }
    data.AddMode(MKivStudyCtls::ModeName(number), mode);
  }
  store.Save(study, "bench");
  return study;
}

void Print(const char* what, const std::vector<double>& plain, const std::vector<double>& ours) {
  std::printf("  %s: sqlite3 library %7.2f ms, this program %7.2f ms  ratio %.2f\n", what, Median(plain),
              Median(ours), Median(ours) / Median(plain));
}

int Measure() {
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  const std::string file = folder.filePath("bench.db").toStdString();
  client::Program program;
  program.Start({});
  program.OpenDatabase(file, client::Program::WhenMissing::Create);
  store::StudyStore& store = program.Store();
  store::Study study = StoreStudy(store);
  const std::int32_t id = study.record->ID();
  // Each side has a file of its own: after somebody else's change a save keeps that state as well.
  const std::string plainFile = folder.filePath("plain.db").toStdString();
  std::filesystem::copy_file(file, plainFile);
  sqlite3* plainDatabase = OpenPlain(plainFile.c_str());

  std::vector<double> plainSaves, ourSaves, plainLoads, ourLoads, plainBoth, ourBoth;
  PlainPlmStudy plain{};
  for (int round = 0; round < kRounds; ++round) {
    plain = {};
    plainLoads.push_back(Milliseconds([&] { LoadPlainStudy(plainDatabase, id, plain); }));
    plainSaves.push_back(Milliseconds([&] { SavePlainStudy(plainDatabase, plain); }));
    ourLoads.push_back(Milliseconds([&] { study = store.Load(id); }));
    for (const auto& mode : *study.record->PlmData()) mode->SetChecked(true);  // as the editor does
    ourSaves.push_back(Milliseconds([&] { store.Save(study, "bench"); }));
    plainBoth.push_back(plainLoads.back() + plainSaves.back());
    ourBoth.push_back(ourLoads.back() + ourSaves.back());
    const auto last = study.record->PlmData()->ReturnMode("Mode 6");
    if (last->ChannelCount() != kChannels || plain.modes.back().channels.size() != kChannels) return 1;
  }
  std::printf("PLM study of four manual modes with 1,999 channels each on SQLite (median of %d):\n", kRounds);
  Print("saving   ", plainSaves, ourSaves);
  Print("reloading", plainLoads, ourLoads);
  Print("both     ", plainBoth, ourBoth);
  std::printf("  (at most 2.5 for reloading, 1.3 for both)\n");
  sqlite3_close(plainDatabase);
  return 0;
}

}  // namespace
}  // namespace kiv::bench

int main() {
  return kiv::bench::Measure();
}
