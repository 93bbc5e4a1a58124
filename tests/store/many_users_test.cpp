// Many people work on the same studies of one database.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <deque>
#include <random>
#include <string>

#include "database/statement_error.h"
#include "database/transaction.h"
#include "store/store_error.h"
#include "support/audit.h"
#include "support/child_process.h"
#include "support/endurance.h"
#include "support/engine.h"
#include "support/rich_studies.h"
#include "support/test_store.h"

namespace kiv::client {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kUsers = 16;
constexpr std::int32_t kStudies = 50;
constexpr int kSavesOfUser = 15;  // in everyday runs
constexpr std::chrono::seconds kLongestRun(120);

int Rounds() {
  return std::max(1, test::Endurance());
}

/// What the users saw, over all of them.
struct Seen {
  std::array<std::atomic<int>, kStudies> saves = {};  ///< of each study
  std::atomic<int> conflicts = 0;
  std::atomic<int> busy = 0;
  std::atomic<int> mixtures = 0;
};

class ManyUsers : public ::testing::TestWithParam<test::Engine> {
 protected:
  ManyUsers() : kinds_(test::RichKinds()) {
    test::TestStore store(*database_);
    for (std::int32_t number = 0; number < kStudies; ++number) {
      store::Study study = store->New(kinds_[static_cast<std::size_t>(number) % kinds_.size()]);
      SetCount(study, 0);
      store->Save(study, "ann");
      EXPECT_EQ(study.record->ID(), number + 1);
    }
  }

  /// Content that tells how often a study was changed.
  static void SetCount(store::Study& study, std::int32_t count) {
    test::Fill(study, count % 4);
    study.record->SetRetrieveDelay(count);
  }
  static bool IsWhole(const store::Study& study) {
    store::Study expected = study;
    const CKivStudyData& record = *study.record;
    expected.record = std::make_shared<CKivStudyData>();
    expected.record->InitNew(record.AppName(), record.EditorName(), record.StudyType(), record.ScenarioType(),
                             record.ID());
    SetCount(expected, record.RetrieveDelay());
    return test::Content(study) == test::Content(expected);
  }

  void Work(std::size_t user, Seen& seen) {
    test::TestStore store(*database_);
    std::mt19937 random(static_cast<std::mt19937::result_type>(user));
    for (int save = 0; save < kSavesOfUser * Rounds(); ++save) {
      const auto id = static_cast<std::int32_t>(random() % kStudies) + 1;
      try {
        store::Study study = store->Load(id);
        if (!IsWhole(study)) ++seen.mixtures;
        SetCount(study, study.record->RetrieveDelay() + 1);
        store->Save(study, "user" + std::to_string(user));
        ++seen.saves[static_cast<std::size_t>(id - 1)];
      } catch (const store::StudyConflict&) {
        ++seen.conflicts;
      } catch (const database::StatementError& error) {
        if (error.Cause() != database::FailureCause::Busy) throw;
        ++seen.busy;
      }
    }
  }

  const std::unique_ptr<test::TestDatabase> database_ = GetParam().start();
  const std::vector<std::string> kinds_;
};

TEST_P(ManyUsers, NoSaveIsLostOrMixedWithAnother) {
  const auto start = Clock::now();
  const test::SharedWithChildren<Seen> seen;
  std::deque<test::ChildProcess> users;
  for (std::size_t user = 0; user < kUsers; ++user) users.emplace_back([&] { Work(user, *seen); });
  for (test::ChildProcess& user : users) EXPECT_EQ(user.Wait(), 0);
  EXPECT_LT(Clock::now() - start, kLongestRun * Rounds());

  test::TestStore store(*database_);
  int saves = 0;
  for (std::int32_t number = 0; number < kStudies; ++number) {
    const store::Study study = store->Load(number + 1);
    const int counted = seen->saves[static_cast<std::size_t>(number)];
    EXPECT_EQ(study.record->RetrieveDelay(), counted) << "a save of study " << number + 1 << " was lost";
    EXPECT_EQ(study.revision, counted + 1);
    EXPECT_TRUE(IsWhole(study)) << test::Content(study);
    saves += counted;
  }
  EXPECT_EQ(seen->mixtures, 0) << "loaded while somebody saved";
  EXPECT_EQ(saves + seen->conflicts + seen->busy, static_cast<int>(kUsers) * kSavesOfUser * Rounds());
  EXPECT_GT(saves, static_cast<int>(kUsers) * kSavesOfUser * Rounds() / 2);
  EXPECT_EQ(test::Audit(*database_->Connect()), "");
  RecordProperty("saves", saves);
  RecordProperty("conflicts", seen->conflicts);
  RecordProperty("busy", seen->busy);
}

TEST_P(ManyUsers, ABusyStudyIsWaitedForAndThenReported) {
  const auto other = database_->Connect();
  test::TestStore store(*database_);
  store::Study study = store->Load(1);
  SetCount(study, 1);
  {
    const database::Transaction holder(*other);
    other->ExecuteSql("UPDATE kiv_study SET modified_by = 'bob' WHERE id = 1");
    const auto start = Clock::now();
    try {
      store->Save(study, "ann");
      ADD_FAILURE() << "stored over somebody else's transaction";
    } catch (const std::exception& error) {
      EXPECT_THAT(store::FailureText(error), testing::StartsWith("The study database is in use by another"));
    }
    EXPECT_GT(Clock::now() - start, std::chrono::seconds(3));
  }
  store->Save(study, "ann");
  EXPECT_EQ(store->Load(1).record->RetrieveDelay(), 1);
}

INSTANTIATE_TEST_SUITE_P(Engines, ManyUsers, ::testing::ValuesIn(test::Engines()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace kiv::client
