// A process that dies while it saves leaves the old study or the new one, and nothing in between.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "store/store_error.h"
#include "support/child_process.h"
#include "support/engine_and_kind.h"
#include "support/test_store.h"
#include "support/watched_connection.h"

namespace kiv::client {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kOldVariant = 1;
constexpr int kNewVariant = 2;

/// One stored study of each kind that changes between two variants.
class Crash : public ::testing::TestWithParam<test::EngineAndKind> {
 protected:
  Crash() {
    test::TestStore store(*database_);
    store::Study study = store->New(std::get<std::string>(GetParam()));
    test::Fill(study, kNewVariant);
    store->Save(study, "ann");
    id_ = study.record->ID();
    newContent_ = test::Content(store->Load(id_));
    test::Fill(study, kOldVariant);
    store->Save(study, "ann");
    oldContent_ = test::Content(store->Load(id_));
    EXPECT_NE(oldContent_, newContent_);
  }

  std::string StoredContent() { return test::Content(test::TestStore(*database_)->Load(id_)); }
  /// Stores the other variant; something is done before each call to the database.
  void Change(const std::function<void()>& atStart, const std::function<void()>& beforeCall) {
    const auto connection = std::make_shared<test::WatchedConnection>(database_->Connect());
    test::TestStore store(connection);
    store::Study study = store->Load(id_);
    test::Fill(study, test::Content(study) == oldContent_ ? kNewVariant : kOldVariant);
    atStart();
    connection->beforeCall = beforeCall;
    store->Save(study, "bob");
  }
  void ExpectWhole(const std::string& where) {
    const std::string content = StoredContent();
    EXPECT_TRUE(content == oldContent_ || content == newContent_) << where << ": " << content;
  }

  const std::unique_ptr<test::TestDatabase> database_ = std::get<test::Engine>(GetParam()).start();
  std::int32_t id_ = 0;
  std::string oldContent_;
  std::string newContent_;
};

TEST_P(Crash, AtEveryCallLeavesAWholeStudy) {
  int lastCall = 0;
  while (!HasFailure()) {
    int calls = 0;
    test::ChildProcess saver([&] {
      Change([] {},
             [&] {
               if (++calls > lastCall) raise(SIGKILL);
             });
    });
    const int end = saver.Wait();
    if (end == 0) break;
    ++lastCall;
    EXPECT_EQ(end, -SIGKILL);
    ExpectWhole("killed at call " + std::to_string(lastCall));
  }
  RecordProperty("kills", lastCall);
  // The rows are written by calls of their own, between a beginning and a commit.
  const bool hasLists = oldContent_.find('{') != std::string::npos;
  EXPECT_GE(lastCall, hasLists ? 100 : 4);
}

TEST_P(Crash, AtAnyMomentLeavesAWholeStudy) {
  constexpr int kKills = 30;
  const auto timeOfSave = [this] {
    Clock::time_point start;
    Change([&start] { start = Clock::now(); }, [] {});
    return Clock::now() - start;
  };
  const auto longest = 2 * std::max(timeOfSave(), timeOfSave());
  for (int kill = 0; kill < kKills && !HasFailure(); ++kill) {
    const test::SharedWithChildren<std::atomic<bool>> saving;
    test::ChildProcess saver([&] { Change([&] { *saving = true; }, [] {}); });
    while (!*saving) std::this_thread::yield();
    std::this_thread::sleep_for(longest * kill / kKills);
    saver.Kill();
    EXPECT_THAT(saver.Wait(), testing::AnyOf(-SIGKILL, 0));
    ExpectWhole("killed in part " + std::to_string(kill) + " of " + std::to_string(kKills));
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Crash, test::EveryEngineAndKind(), test::NameOf);

/// No file of this process grows beyond a size while this lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : handler_(signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit = {bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  sighandler_t handler_;
};

/// On a file, because a server writes its own.
class FullDisk : public Crash {};

TEST_P(FullDisk, LeavesTheOldStudyAndIsToldOnce) {
  constexpr int kLargeVariant = 100;
  const auto size = std::filesystem::file_size(database_->Name());
  for (const rlim_t limit : {rlim_t{0}, rlim_t{1000}, rlim_t{size}, rlim_t{size + 5000}}) {
    {
      test::TestStore store(*database_);
      store::Study study = store->Load(id_);
      test::Fill(study, kLargeVariant);
      std::string message;
      {
        const FileSizeLimit full(limit);
        try {
          store->Save(study, "bob");
        } catch (const std::exception& error) {
          message = store::FailureText(error);
        }
      }
      EXPECT_THAT(message, testing::StartsWith("The disk of the study database is full")) << limit;
      EXPECT_EQ(test::Content(store->Load(id_)), oldContent_) << limit;
    }
    EXPECT_EQ(StoredContent(), oldContent_) << limit;
  }
  test::TestStore store(*database_);
  store::Study study = store->Load(id_);
  test::Fill(study, kLargeVariant);
  store->Save(study, "bob");
  EXPECT_GT(std::filesystem::file_size(database_->Name()), size);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FullDisk,
                         ::testing::Combine(::testing::Values(test::SqliteEngine()),
                                            ::testing::Values("PLM Study", "VCSA Study")),
                         test::NameOf);

}  // namespace
}  // namespace kiv::client
