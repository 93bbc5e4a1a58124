// A process that dies while it saves leaves the old study or the new one, and nothing in between.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "support/child_process.h"
#include "support/endurance.h"
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
  const int kills = 30 * std::max(1, test::Endurance());
  const auto timeOfSave = [this] {
    Clock::time_point start;
    Change([&start] { start = Clock::now(); }, [] {});
    return Clock::now() - start;
  };
  const auto longest = 2 * std::max(timeOfSave(), timeOfSave());
  for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
    const test::SharedWithChildren<std::atomic<bool>> saving;
    test::ChildProcess saver([&] { Change([&] { *saving = true; }, [] {}); });
    while (!*saving) std::this_thread::yield();
    std::this_thread::sleep_for(longest * kill / kills);
    saver.Kill();
    EXPECT_THAT(saver.Wait(), testing::AnyOf(-SIGKILL, 0));
    RecordProperty("kills", kill + 1);
    ExpectWhole("killed in part " + std::to_string(kill) + " of " + std::to_string(kills));
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Crash, test::EveryEngineAndKind(), test::NameOf);

}  // namespace
}  // namespace kiv::client
