// Loading and saving a VCSA study of 1,000 cells with 6 antennas and 3 carriers each, against plain structs.

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include "database/open.h"
#include "database/transaction.h"
#include "host/scope.h"
#include "plain_sqlite.h"
#include "plain_vcsa.h"
#include "sample_vcsa.h"
#include "timing.h"
#include "vcsa/vcs_data.h"

namespace kiv::bench {
namespace {

constexpr int kStudy = 1;
constexpr int kCells = 1000;
constexpr int kRounds = 15;

void Print(const char* what, const std::vector<double>& plain, const std::vector<double>& ours,
           const char* goal) {
  std::printf("  %s: sqlite3 library %7.2f ms, this library %7.2f ms  ratio %.2f (%s)\n", what, Median(plain),
              Median(ours), Median(ours) / Median(plain), goal);
}

int Measure() {
  const auto folder = std::filesystem::temp_directory_path() / "kiv-vcsa-bench";
  std::filesystem::remove_all(folder);
  const std::string file = folder / "bench.db";
  auto connection = database::OpenStudyDatabase(file, database::OpenMode::CreateIfMissing);
  const host::Scope scope({.openDatabase = [connection] { return connection; }});
  connection->ExecuteSql(
      "INSERT INTO kiv_study (id, kind, name, modified_by, modified_at) VALUES (1, 'VCSA Study', 'x', 'x', "
      "'x')");
  CKivVcsData study;
  study.SetID(kStudy);
  FillVcsaStudy(study, kCells);
  {
    database::Transaction transaction(*connection);
    study.InsertNew();
    transaction.Commit();
  }
  sqlite3* plainDatabase = OpenPlain(file.c_str());

  std::vector<double> plainLoads, ourLoads, plainSaves, ourSaves;
  PlainVcsaStudy plain{};
  for (int round = 0; round < kRounds; ++round) {
    plain = {};
    plainLoads.push_back(Milliseconds([&] { LoadPlainStudy(plainDatabase, kStudy, plain); }));
    const auto loaded = std::make_unique<CKivVcsData>();
    ourLoads.push_back(Milliseconds([&] { loaded->GetData(kStudy); }));
    plainSaves.push_back(Milliseconds([&] { SavePlainStudy(plainDatabase, plain); }));
    ourSaves.push_back(Milliseconds([&] {
      database::Transaction transaction(*connection);
      loaded->Update();
      transaction.Commit();
    }));
    if (loaded->Cells()->Count() != kCells || plain.cells.size() != kCells) return 1;
  }
  std::printf("VCSA study of %d cells, 6,000 antennas, 3,000 carriers on SQLite (median of %d):\n", kCells,
              kRounds);
  Print("loading", plainLoads, ourLoads, "at most 1.3");
  Print("saving ", plainSaves, ourSaves, "at most 1");
  sqlite3_close(plainDatabase);
  std::filesystem::remove_all(folder);
  return 0;
}

}  // namespace
}  // namespace kiv::bench

int main() {
  return kiv::bench::Measure();
}
