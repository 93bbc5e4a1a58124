// Every call to the files of a database fails, one after the other, or is the last one before the power is
// gone: what is told as stored is stored, everything else is as it was, and the audit finds nothing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "support/audit.h"
#include "support/child_process.h"
#include "support/endurance.h"
#include "support/faulty_files.h"
#include "support/faulty_proxy.h"
#include "support/postgres_server.h"
#include "support/rich_studies.h"
#include "support/temp_folder.h"
#include "support/test_store.h"

namespace kiv::client {
namespace {

using test::FileFault;
using test::MessageFault;

std::string NameOfKind(const ::testing::TestParamInfo<std::string>& kind) {
  std::string name = kind.param;
  std::erase(name, ' ');
  return name;
}

struct Work {
  const char* name;
  void (*run)(test::TestStore& store, const std::string& kind);
};

store::Study Filled(test::TestStore& store, const std::string& kind, int variant) {
  store::Study study = store->New(kind);
  test::Fill(study, variant);
  return study;
}

/// In this order they make a history, and each can be done to what the ones before it have left.
constexpr Work kWorks[] = {
    {"create",
     [](auto& store, const auto& kind) {
       store::Study study = Filled(store, kind, 1);
       store->Save(study, "ann");
     }},
    {"change",
     [](auto& store, const auto&) {
       store::Study study = store->Load(1);
       test::Fill(study, 2);
       store->Save(study, "bob");
     }},
    {"import",
     [](auto& store, const auto& kind) {
       std::vector<store::NamedStudy> studies;
       for (int number = 1; number <= 3; ++number) studies.push_back({Filled(store, kind, number), "Night"});
       store->AddAll(studies, "ann");
     }},
    {"rename", [](auto& store, const auto&) { store->Scenarios().Rename(1, "Day"); }},
    {"remove", [](auto& store, const auto&) { store->Remove(1, "eve"); }},
    {"restore", [](auto& store, const auto&) { store->Restore(1, 1, "ann"); }},
};

struct Fault {
  const char* name;
  FileFault fault;
  bool lasts;
};

constexpr Fault kFaults[] = {
    {"an error", FileFault::Error, false},   {"errors from then on", FileFault::Error, true},
    {"half of it", FileFault::Short, false}, {"all of it and an error", FileFault::DoneError, false},
    {"a full disk", FileFault::Full, true},  {"the end of the process", FileFault::Kill, false},
};

std::shared_ptr<database::SqlConnection> Open(const std::string& name) {
  return database::OpenStudyDatabase(name, database::OpenMode::CreateIfMissing);
}

class FileFaults : public ::testing::TestWithParam<std::string> {
 protected:
  static constexpr const char* kStored = "";

  FileFaults() {
    test::RichKinds();
    states_.push_back(StateOf(File("0.db")));
    for (std::size_t i = 0; i < std::size(kWorks); ++i) {
      std::filesystem::copy(File(std::to_string(i) + ".db"), File(std::to_string(i + 1) + ".db"));
      EXPECT_EQ(Do(kWorks[i], File(std::to_string(i + 1) + ".db")), kStored);
      states_.push_back(StateOf(File(std::to_string(i + 1) + ".db")));
    }
  }

  std::string File(const std::string& name) const { return folder_.File(name); }
  /// What a user is told; nothing when it is stored.
  std::string Do(const Work& work, test::TestStore& store) const {
    try {
      work.run(store, GetParam());
      return kStored;
    } catch (const std::exception& error) {
      return store::FailureText(error);
    }
  }
  std::string Do(const Work& work, const std::string& file) const {
    test::TestStore store(Open(file));
    return Do(work, store);
  }
  /// All that a user can see in a database, without times. The audit has nothing to say.
  static std::string StateOf(const std::string& file) {
    const auto connection = Open(file);
    EXPECT_EQ(test::AuditFile(*connection), "");
    test::TestStore store(connection);
    std::string state;
    for (const store::StudySummary& study : store->List()) {
      state += std::to_string(study.id) + test::Content(store->Load(study.id)) + study.scenario + '\n';
      for (const store::HistoryEntry& entry : store->History().Entries(study.id)) {
        state += std::to_string(entry.revision) + std::string(store::EventName(entry.event)) +
                 entry.changedBy + ';';
      }
    }
    for (const host::Document& scenario : store->Scenarios().List()) state += scenario.name + '\n';
    return state;
  }

  /// One work on a copy of the database, with a fault at a call. False when the work has fewer calls.
  bool Try(std::size_t number, const Fault& fault, int call);
  void ExpectEitherState(std::size_t number, const std::string& file) const {
    const std::string state = StateOf(file);
    EXPECT_TRUE(state == states_[number] || state == states_[number + 1]) << state;
  }

  test::TempFolder folder_;
  std::vector<std::string> states_;  ///< before the first work, and after each
};

bool FileFaults::Try(std::size_t number, const Fault& fault, int call) {
  const Work& work = kWorks[number];
  const std::string file = File("tried.db");
  std::filesystem::remove(file + "-journal");
  std::filesystem::copy_file(File(std::to_string(number) + ".db"), file,
                             std::filesystem::copy_options::overwrite_existing);
  SCOPED_TRACE(std::string(work.name) + ", " + fault.name + " at call " + std::to_string(call));
  if (fault.fault == FileFault::Kill) {
    test::ChildProcess child([&] {
      test::FaultyFiles files;
      test::TestStore store(Open(file));
      files.Fail(fault.fault, call, fault.lasts);
      Do(work, store);
    });
    const bool killed = child.Wait() == -SIGKILL;
    ExpectEitherState(number, file);
    return killed;
  }
  bool failed = false;
  std::string told;
  {
    test::FaultyFiles files;
    test::TestStore store(Open(file));
    files.Fail(fault.fault, call, fault.lasts);
    told = Do(work, store);
    failed = files.HasFailed();
    files.Mend();
    if (fault.fault == FileFault::Full && failed) {
      EXPECT_THAT(told, testing::StartsWith("The disk of the study database is full"));
    }
    if (told != kStored) {
      EXPECT_EQ(StateOf(file), states_[number]) << told;
      EXPECT_EQ(Do(work, store), kStored) << "it can be done when the fault is gone, after " << told;
    }
  }
  EXPECT_EQ(StateOf(file), states_[number + 1]) << told;
  return failed;
}

TEST_P(FileFaults, LeaveTheDatabaseAsItIsTold) {
  const int step = test::Endurance() > 0 ? 1 : 23;
  int cases = 0;
  for (std::size_t work = 0; work < std::size(kWorks); ++work) {
    int first = static_cast<int>(work);
    for (const Fault& fault : kFaults) {
      for (int call = 1 + first++ % step; !HasFailure() && Try(work, fault, call); call += step) ++cases;
    }
  }
  RecordProperty("cases", cases);
  EXPECT_GT(cases, 1500 / step);
}

TEST_P(FileFaults, PowerFailureKeepsWhatWasToldAsStored) {
  const std::string file = File("recorded.db");
  std::filesystem::copy(File("0.db"), file);
  std::ifstream stream(file, std::ios::binary);
  std::map<std::string, std::string> files;
  files[file] = {std::istreambuf_iterator<char>(stream), {}};
  test::PowerFailure disk(files);
  std::vector<test::FileEvent> events;
  std::vector<std::size_t> stored;  // how many events had happened when each work was told as stored
  {
    test::FaultyFiles watched;
    test::TestStore store(Open(file));
    watched.Record(true);
    for (const Work& work : kWorks) {
      EXPECT_EQ(Do(work, store), kStored);
      stored.push_back(watched.Events().size());
    }
    events = watched.Events();
  }
  std::mt19937 random(20261122);
  const int tries = test::Endurance() > 0 ? 20 * test::Endurance() : 1;
  int cases = 0;
  std::size_t done = 0;
  for (std::size_t event = 0; event <= events.size() && !HasFailure(); ++event) {
    while (done < stored.size() && stored[done] <= event) ++done;
    const bool isTried = test::Endurance() > 0 || event % 5 == 0;
    for (int i = 0; isTried && i < tries; ++i, ++cases) {
      const auto odds = random() % 8;
      for (const auto& [name, content] : disk.Files([&] { return random() % 8 <= odds; })) {
        const std::string end = name.substr(file.size());
        std::ofstream(File("after.db" + end), std::ios::binary | std::ios::trunc) << content;
      }
      SCOPED_TRACE("power failed after call " + std::to_string(event) + ", try " + std::to_string(i));
      const std::string state = StateOf(File("after.db"));
      const bool kept = state == states_[done] || (done + 1 < states_.size() && state == states_[done + 1]);
      EXPECT_TRUE(kept) << state;
      std::filesystem::remove(File("after.db-journal"));
    }
    if (event < events.size()) disk.Happen(events[event]);
  }
  RecordProperty("cases", cases);
}

#ifdef KIV_WITH_POSTGRES

/// On a server, whose messages get lost on the way.
class WireFaults : public ::testing::TestWithParam<std::string> {
 protected:
  struct Database {
    explicit Database(const std::string& address)
        : proxy(address.substr(address.find('=') + 1)),
          direct(Open(address)),
          store(Open(address.substr(0, address.find('=') + 1) + proxy.Host())) {}

    test::FaultyProxy proxy;
    std::shared_ptr<database::SqlConnection> direct;
    test::TestStore store;
  };

  static std::string Told(const Work& work, test::TestStore& store) {
    try {
      work.run(store, GetParam());
      return {};
    } catch (const store::OutcomeUnknown&) {
      return kUnknown;
    } catch (const std::exception& error) {
      return store::FailureText(error);
    }
  }
  /// Lets the work be possible once more, not by the connection that may be lost.
  static void Prepare(const Work& work, const std::shared_ptr<database::SqlConnection>& direct) {
    test::TestStore store(direct);
    const bool present = store->Summary(1).has_value();
    if (work.name == std::string("restore") && present) store->Remove(1, "eve");
    if (work.name == std::string("remove") && !present) store->Restore(1, 1, "ann");
  }
  static std::int64_t Count(database::SqlConnection& connection, const std::string& what) {
    return std::get<std::int64_t>(connection.OpenQuery("SELECT " + what, 60)->FieldAt(0).Value());
  }
  bool Try(const Work& work, MessageFault fault, int message, Database& database);

  static constexpr const char* kUnknown = "unknown";
};

bool WireFaults::Try(const Work& work, MessageFault fault, int message, Database& database) {
  SCOPED_TRACE(std::string(work.name) + ", fault " + std::to_string(static_cast<int>(fault)) +
               " at message " + std::to_string(message));
  const auto changes = [&] { return Count(*database.direct, "count(*) FROM kiv_change"); };
  Prepare(work, database.direct);
  const auto before = changes();
  database.proxy.Fail(fault, message);
  const std::string told = Told(work, database.store);
  const bool failed = database.proxy.HasFailed();
  database.proxy.Fail(MessageFault::None, 0);
  if (told == kUnknown) {
    EXPECT_LE(changes(), before + 1);
  } else {
    EXPECT_EQ(changes(), before + (told.empty() ? 1 : 0)) << told;
  }
  if (!told.empty() && told != kUnknown) {
    EXPECT_EQ(Told(work, database.store), "") << "it can be done when the fault is gone, after " << told;
  }
  EXPECT_EQ(test::Audit(*database.direct), "") << told;
  return failed || !told.empty();  // the end of a connection may be noticed by the next work
}

TEST_P(WireFaults, OnPostgresLeaveTheDatabaseAsItIsTold) {
  const int step = test::Endurance() > 0 ? 1 : 37;
  int cases = 0;
  for (const Work& work : kWorks) {
    int first = 0;
    for (const MessageFault fault :
         {MessageFault::CutBefore, MessageFault::Short, MessageFault::CutAfter, MessageFault::Late}) {
      Database database(test::PostgresServer::Shared().NewDatabase());
      for (const Work& earlier : kWorks) {
        if (&earlier == &work) break;
        EXPECT_EQ(Told(earlier, database.store), "");
      }
      for (int message = 1 + first++ % step; !HasFailure() && Try(work, fault, message, database);
           message += step) {
        ++cases;
      }
    }
  }
  RecordProperty("cases", cases);
  EXPECT_GT(cases, 1000 / step);
}

INSTANTIATE_TEST_SUITE_P(Kinds, WireFaults, ::testing::ValuesIn(test::RichKinds()), NameOfKind);

#endif

INSTANTIATE_TEST_SUITE_P(Kinds, FileFaults, ::testing::ValuesIn(test::RichKinds()), NameOfKind);

}  // namespace
}  // namespace kiv::client
