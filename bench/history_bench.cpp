// What keeping the history adds to the save of a VCSA study of 1,000 cells with 6 antennas and 3 carriers
// each: the same saves in a database with the history and in one of the layout before it.

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "core/study_kinds.h"
#include "database/schema.h"
#include "sample_vcsa.h"
#include "store/studies/study_store.h"
#include "support/engine.h"
#include "support/test_store.h"
#include "timing.h"

namespace kiv::bench {
namespace {

constexpr int kCells = 1000;
constexpr int kConnections = 5;
constexpr int kRounds = 7;
constexpr int kLayoutBeforeHistory = 6;

std::vector<double> Saves(const std::shared_ptr<database::Connection>& connection) {
  test::TestStore store(connection);
  store::Study study = store->New(std::string(kVcsStudy));
  study.name = "Downtown";
  FillVcsaStudy(*study.record->SubRecordAs<CKivVcsData>(), kCells);
  store->Save(study, "bench");
  std::vector<double> times;
  times.reserve(kRounds);
  for (int round = 0; round < kRounds; ++round) {
    times.push_back(Milliseconds([&] { store->Save(study, "bench"); }));
  }
  return times;
}

void Measure(const test::Engine& engine) {
  std::vector<double> with, without;
  for (int connection = 0; connection < kConnections; ++connection) {
    for (const int layout : {kLayoutBeforeHistory, database::NewestSchemaVersion()}) {
      const auto database = engine.start();
      const auto opened = database->Connect();
      database::UpgradeSchema(*opened, layout);
      std::vector<double>& all = layout == kLayoutBeforeHistory ? without : with;
      const std::vector<double> times = Saves(opened);
      all.insert(all.end(), times.begin(), times.end());
    }
  }
  std::printf(
      "%s, saving 1,000 cells: without history %7.2f ms, with history %7.2f ms  %+.0f %% (at most 20)\n",
      engine.name.c_str(), Median(without), Median(with), 100 * (Median(with) / Median(without) - 1));
}

}  // namespace
}  // namespace kiv::bench

int main() {
  for (const kiv::test::Engine& engine : kiv::test::Engines()) kiv::bench::Measure(engine);
}
