// Saving and loading VCSA studies through the program's store against the plain C libraries that run the very
// same statement texts one by one: on SQLite, on a PostgreSQL server on this machine, and on one 1 ms away.

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/study_kinds.h"
#include "database/open.h"
#include "delay_proxy.h"
#include "plain_library.h"
#include "sample_vcsa.h"
#include "store/studies/study_store.h"
#include "support/postgres_server.h"
#include "support/temp_folder.h"
#include "support/test_store.h"
#include "support/watched_connection.h"
#include "timing.h"

namespace kiv::bench {
namespace {

using Texts = std::vector<std::string>;

constexpr int kCells = 1000;

/// Remembers the texts of what it passes on.
class RecordingConnection : public test::WatchedConnection {
 public:
  using WatchedConnection::WatchedConnection;

  Texts texts;
  bool recording = false;

  std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql, int timeoutSeconds) override {
    if (recording) texts.push_back(sql);
    return WatchedConnection::OpenQuery(sql, timeoutSeconds);
  }
  void ExecuteSql(const std::string& sql) override {
    if (recording) texts.push_back(sql);
    WatchedConnection::ExecuteSql(sql);
  }
};

/// A stored study, and the texts that saving and loading it takes.
class Subject {
 public:
  Subject(const std::string& database, int cells)
      : connection_(std::make_shared<RecordingConnection>(
            database::OpenStudyDatabase(database, database::OpenMode::CreateIfMissing))),
        store_(connection_),
        study_(store_->New(std::string(kVcsStudy))) {
    study_.name = "Downtown";
    FillVcsaStudy(*study_.record->SubRecordAs<CKivVcsData>(), cells);
    Save();
    saving_ = Recorded([this] { Save(); });
    // The recorded revision is over when the text is run again.
    std::string& studyRow = *std::ranges::find_if(
        saving_, [](const std::string& text) { return text.starts_with("UPDATE kiv_study "); });
    const std::size_t condition = studyRow.find(" AND revision = ");
    studyRow.erase(condition, studyRow.find(" RETURNING") - condition);
    const std::size_t revision = studyRow.find(" revision = ");
    studyRow.replace(revision, studyRow.find(',', revision) - revision, " revision = revision + 1");
    loading_ = Recorded([this] { Load(); });
  }

  const Texts& SavingTexts() const { return saving_; }
  const Texts& LoadingTexts() const { return loading_; }

  void Save() { store_->Save(study_, "bench"); }
  void Load() { study_ = store_->Load(study_.record->ID()); }

 private:
  Texts Recorded(const std::function<void()>& work) {
    connection_->texts.clear();
    connection_->recording = true;
    work();
    connection_->recording = false;
    // Only this program keeps a history of changes; an entry of it cannot be written twice.
    std::erase_if(connection_->texts, [](const std::string& text) {
      return text.find("kiv_study_history") != std::string::npos ||
             text.find("kiv_change") != std::string::npos;
    });
    return connection_->texts;
  }

  std::shared_ptr<RecordingConnection> connection_;
  test::TestStore store_;
  store::Study study_;
  Texts saving_;
  Texts loading_;
};

void Print(const char* what, const std::vector<double>& plain, const std::vector<double>& ours,
           const char* goal) {
  std::printf("  %-8s plain library %9.2f ms   this program %8.2f ms   %5.2f times as fast (%s)\n", what,
              Median(plain), Median(ours), Median(plain) / Median(ours), goal);
}

/// Where databases come from, and how each side reaches one.
struct Place {
  const char* title;
  std::function<std::string()> newDatabase;
  std::function<std::unique_ptr<PlainLibrary>(const std::string& address)> connect;
};

struct Rounds {
  int connections;  ///< both sides connect anew: where a server's process happens to run decides much
  int each;
};

struct Goals {
  const char* saving;
  const char* loading;
};

/// Each side has a database of its own, so that neither finds its cache made void by the other.
void Compare(const Place& place, Rounds rounds, Goals goals) {
  const std::string ofPlain = place.newDatabase();
  const std::string ours = place.newDatabase();
  std::vector<double> plainSaves, ourSaves, plainLoads, ourLoads;
  for (int connection = 0; connection < rounds.connections; ++connection) {
    Texts saving;
    Texts loading;
    {
      const Subject study(ofPlain, kCells);
      saving = study.SavingTexts();
      loading = study.LoadingTexts();
    }
    Subject subject(ours, kCells);
    const std::unique_ptr<PlainLibrary> plain = place.connect(ofPlain);
    for (int round = 0; round < rounds.each; ++round) {
      plainSaves.push_back(Milliseconds([&] { plain->RunInTransaction(saving); }));
      ourSaves.push_back(Milliseconds([&] { subject.Save(); }));
      plainLoads.push_back(Milliseconds([&] {
        for (const std::string& sql : loading) plain->Fetch(sql);
      }));
      ourLoads.push_back(Milliseconds([&] { subject.Load(); }));
    }
  }
  std::printf("%s: VCSA study of 1,000 cells, 6,000 antennas, 3,000 carriers (median of %d):\n", place.title,
              rounds.connections * rounds.each);
  Print("saving", plainSaves, ourSaves, goals.saving);
  Print("loading", plainLoads, ourLoads, goals.loading);
}

void Grow(const Place& place) {
  std::printf("%s, time for each row of studies that grow:\n", place.title);
  for (const int cells : {100, 1000, 10000}) {
    Subject subject(place.newDatabase(), cells);
    std::vector<double> saves, loads;
    for (int round = 0; round < 5; ++round) {
      saves.push_back(Milliseconds([&] { subject.Save(); }));
      loads.push_back(Milliseconds([&] { subject.Load(); }));
    }
    const double rows = 10.0 * cells;
    std::printf("  %6d cells: saving %6.2f us, loading %6.2f us (not rising)\n", cells,
                Median(saves) / rows * 1000, Median(loads) / rows * 1000);
  }
}

void Measure() {
  const test::TempFolder folder;
  int files = 0;
  const Place sqlite = {"SQLite", [&] { return folder.File("bench" + std::to_string(++files) + ".db"); },
                        PlainSqlite};
  Compare(sqlite, {1, 15}, {"at least 2.7", "at least 3"});
  Grow(sqlite);

  test::PostgresServer server(test::PostgresServer::Use::Measurements);
  const Place nearby = {"PostgreSQL, loopback", [&] { return server.NewDatabase(); }, PlainPostgres};
  constexpr const char* kLoadingFromServer = "at least 0.77: in at most 1.3 times its time";
  Compare(nearby, {7, 3}, {"at least 5", kLoadingFromServer});
  Grow(nearby);

  const DelayProxy proxy(server.Port(), std::chrono::milliseconds(1));
  const auto behindProxy = [&] {
    std::string address = server.NewDatabase();
    const std::string port = ":" + std::to_string(server.Port());
    return address.replace(address.find(port), port.size(), ":" + std::to_string(proxy.Port()));
  };
  Compare({"PostgreSQL, 1 ms away", behindProxy, PlainPostgres}, {1, 1}, {"at least 10", kLoadingFromServer});
}

}  // namespace
}  // namespace kiv::bench

int main() {
  kiv::bench::Measure();
}
