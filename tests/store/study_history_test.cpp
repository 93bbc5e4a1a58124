// What is kept of each save and deletion, and brought back.

#include "store/history/study_history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

#include "client/texts/history_text.h"
#include "database/open.h"
#include "database/schema.h"
#include "database/statement_error.h"
#include "store/history/packed_text.h"
#include "support/engine_and_kind.h"
#include "support/rows_text.h"
#include "support/test_store.h"
#include "support/watched_connection.h"

namespace kiv::client {
namespace {

class History : public ::testing::TestWithParam<test::EngineAndKind> {
 protected:
  /// Stores the study with other content; returns that content as it is read again.
  std::string Save(store::Study& study, int variant, const std::string& user) {
    test::Fill(study, variant);
    (*store_)->Save(study, user);
    return Stored(study.record->ID());
  }
  store::Study NewStudy() { return (*store_)->New(std::get<std::string>(GetParam())); }
  std::string Stored(std::int32_t id) {
    store::Study study = (*store_)->Load(id);
    return test::Content(study) + (*store_)->Scenarios().List().front().name;
  }
  /// Such as `1 created ann;2 changed bob;`
  std::string Events(std::int32_t id) {
    std::string text;
    for (const store::HistoryEntry& entry : (*store_)->History().Entries(id)) {
      text += std::to_string(entry.revision) + " " + std::string(store::EventName(entry.event)) + " " +
              entry.changedBy + ";";
    }
    return text;
  }
  static auto Refuses(const std::string& told) {
    return testing::ThrowsMessage<store::StoreError>(testing::HasSubstr(told));
  }

  const std::unique_ptr<test::TestDatabase> database_ = std::get<test::Engine>(GetParam()).start();
  const std::shared_ptr<database::SqlConnection> connection_ = database_->Connect();
  std::optional<test::TestStore> store_{connection_};
};

TEST_P(History, BringsBackEveryStateAndADeletedStudy) {
  database::UpgradeSchema(*connection_);
  const std::int32_t scenario = (*store_)->Scenarios().Add("Downtown");
  store::Study study = NewStudy();
  study.record->SetScenarioID(scenario);
  const std::string first = Save(study, 1, "ann");
  const std::int32_t id = study.record->ID();
  database_->BreakInserts(*connection_, "kiv_study_history", "disk on fire");
  EXPECT_THROW(Save(study, 2, "bob"), host::DatabaseError);
  EXPECT_THROW((*store_)->Remove(id, "bob"), host::DatabaseError);
  EXPECT_THROW((*store_)->Restore(id, 1, "bob"), Error);
  database_->MendInserts(*connection_, "kiv_study_history");
  EXPECT_EQ((*store_)->Load(id).revision, 1);
  EXPECT_EQ(Events(id), "1 created ann;") << "what failed left no entry";
  const std::string second = Save(study, 2, "bob");
  (*store_)->Remove(id, "eve");
  (*store_)->Remove(id, "eve");  // there is none any more
  EXPECT_EQ(Events(id), "1 created ann;2 changed bob;3 deleted eve;");
  ASSERT_EQ((*store_)->History().DeletedStudies().size(), 1U);
  EXPECT_EQ((*store_)->History().DeletedStudies()[0].name, "it's variant 2");
  EXPECT_THAT([&] { (*store_)->Restore(id, 3, "ann"); }, Refuses("Nothing is kept"));

  (*store_)->Scenarios().Remove(scenario);
  EXPECT_EQ((*store_)->Restore(id, 1, "ann"), 4);
  EXPECT_EQ(Stored(id), first) << "with its scenario, made anew";
  EXPECT_TRUE((*store_)->History().DeletedStudies().empty());
  (*store_)->Scenarios().Rename((*store_)->Scenarios().List()[0].id, "Harbour");
  EXPECT_EQ((*store_)->Restore(id, 2, "ann"), 5);
  EXPECT_EQ(Stored(id), second);
  EXPECT_EQ((*store_)->Load(id).revision, 5);

  EXPECT_THROW((*store_)->Save(study, "bob"), store::StudyConflict) << "it was loaded before";
  EXPECT_THAT([&] { (*store_)->Restore(id, 5, "ann"); }, Refuses("is at revision 5 now"));
  EXPECT_THAT([&] { (*store_)->Restore(id, 9, "ann"); }, Refuses("has no revision 9"));
  EXPECT_THAT([&] { (*store_)->Restore(99, 1, "ann"); }, Refuses("no history of a study 99"));
  EXPECT_EQ(Events(id), "1 created ann;2 changed bob;3 deleted eve;4 restored ann;5 restored ann;");

  const std::vector<HistoryStep> steps = StepsOf((*store_)->History(), id);
  EXPECT_TRUE(steps[0].differences.empty());
  EXPECT_EQ(steps[4].differences.size(), steps[1].differences.size());
  EXPECT_GT(steps[4].differences.size(), 4U);
}

TEST_P(History, BeginsWithWhatIsThereWhenADatabaseIsUpgraded) {
  constexpr int kBeforeHistory = 6;
  database::UpgradeSchema(*connection_, kBeforeHistory);
  (*store_)->Scenarios().Add("Downtown");
  store::Study study = NewStudy();
  const std::string first = Save(study, 1, "ann");
  const std::int32_t id = study.record->ID();
  EXPECT_THAT([&] { Events(id); }, Refuses("older layout"));
  database::UpgradeSchema(*connection_);
  store_.emplace(connection_);
  EXPECT_THAT([&] { Events(id); }, Refuses("no history of a study"));
  Save(study, 2, "bob");
  Save(study, 3, "bob");
  EXPECT_EQ(Events(id), "1 known ann;2 changed bob;3 changed bob;");
  (*store_)->Restore(id, 1, "ann");
  EXPECT_EQ(Stored(id), first);
}

INSTANTIATE_TEST_SUITE_P(Kinds, History, test::EveryEngineAndKind(), test::NameOf);

[[noreturn]] void LoseConnection() {
  throw database::StatementError(database::FailureCause::ConnectionLost, "cut", "COMMIT");
}

TEST(LostAnswer, IsFoundOutSoThatEachChangeIsMadeOnce) {
  for (const test::Engine& engine : test::Engines()) {
    SCOPED_TRACE(engine.name);
    const auto database = engine.start();
    const auto connection = database->Connect();
    database::UpgradeSchema(*connection);
    const auto watched = std::make_shared<test::WatchedConnection>(connection);
    test::TestStore store{watched};
    const auto commit = watched->commit;
    const auto storeAndLose = [](database::Connection& inner) {
      inner.Commit();
      LoseConnection();
    };
    const auto storeAndGoAway = [&](database::Connection& inner) {
      watched->beforeCall = LoseConnection;
      storeAndLose(inner);
    };
    watched->commit = storeAndLose;
    store::Study study = store->New(test::RichKinds()[0]);
    test::Fill(study, 1);
    store->Save(study, "ann");
    const std::int32_t id = study.record->ID();
    const std::int32_t scenario = store->Scenarios().Add("Harbour");
    EXPECT_EQ(scenario, store->Scenarios().Find("harbour"));
    store->Save(study, "ann");
    EXPECT_EQ(store->Restore(id, 1, "ann"), 3);

    study = store->Load(id);
    watched->commit = [](database::Connection& inner) {
      inner.Rollback();
      LoseConnection();
    };
    EXPECT_THROW(store->Save(study, "bob"), database::StatementError) << "was not stored, and it is said so";
    EXPECT_EQ(study.revision, 3);
    for (const bool asCopy : {false, true}) {
      const auto save = [&] { asCopy ? store->SaveCopy(study, "bob") : store->Save(study, "bob"); };
      watched->commit = storeAndGoAway;
      EXPECT_THROW(save(), store::OutcomeUnknown);
      EXPECT_THROW(save(), database::StatementError) << "still not to be asked";
      watched->beforeCall = [] {};
      watched->commit = commit;
      save();
      EXPECT_EQ(study.revision, asCopy ? 2 : 5) << "its own save is no conflict";
      EXPECT_EQ(store->Count(), asCopy ? 2U : 1U);
    }
    store->Remove(id, "ann");
    EXPECT_EQ(store->List().front().id, study.record->ID());
  }
}

TEST(LostAnswer, IsNotLookedForBeforeTheOtherEnded) {
  const auto database = test::PostgresEngine().start();
  const auto connection = database->Connect();
  database::UpgradeSchema(*connection);
  const store::Changes changes(*connection);
  for (const bool stored : {true, false}) {
    const auto other = database->Connect();
    const store::Changes others(*other);
    std::optional<store::Change> change(std::in_place, others, store::ChangeNote{"import", "ann", "now", 1});
    other->OpenQuery("SELECT 1", 0);  // sends what waits
    auto found = std::async(std::launch::async, [&] { return changes.IsStored(change->Token()); });
    EXPECT_EQ(found.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
    stored ? change->Commit() : change.reset();
    EXPECT_EQ(found.get(), stored);
  }
}

TEST(LoginRole, IsRecordedByTheServerInAHistoryThatItsUsersOnlyAddTo) {
  const auto database = test::PostgresEngine().start();
  const auto owner = database->Connect();
  database::UpgradeSchema(*owner);
  for (const char* sql :
       {"CREATE ROLE kivstudy_users NOLOGIN",
        "GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA public TO kivstudy_users",
        "GRANT USAGE ON SCHEMA lucent_generic TO kivstudy_users",
        "REVOKE UPDATE, DELETE ON kiv_study_history, kiv_change FROM kivstudy_users",
        "CREATE ROLE anna LOGIN IN ROLE kivstudy_users"}) {
    owner->ExecuteSql(sql);
  }
  const auto connection = database->Connect();
  connection->ExecuteSql("SET SESSION AUTHORIZATION anna");
  test::TestStore store{connection};
  store->Scenarios().Add("Downtown");
  store::Study study = store->New(test::RichKinds()[0]);
  test::Fill(study, 1);
  store->Save(study, "desk");
  const std::int32_t id = study.record->ID();
  store->Remove(id, "anna");
  store->Restore(id, 1, "desk");
  const auto entries = store->History().Entries(id);
  EXPECT_EQ(WhoText(entries[0]), "desk (login anna)");
  EXPECT_EQ(WhoText(entries[1]), "anna");
  for (const std::string table : {"kiv_study_history", "kiv_change"}) {
    for (const std::string& sql : {"UPDATE " + table + " SET changed_by = 'eve', login_role = 'eve'",
                                   "DELETE FROM " + table, "TRUNCATE " + table}) {
      EXPECT_THROW(connection->ExecuteSql(sql), host::DatabaseError) << sql;
    }
  }
  connection->ExecuteSql("INSERT INTO kiv_change VALUES ('forged', 'import', 1, 'eve', 'now', 'eve')");
  EXPECT_EQ(test::RowsText(*owner, "login_role", "kiv_change WHERE token = 'forged'"), "anna;");
}

TEST(PackedText, IsReadAsEarlierVersionsWroteItAndNeverInflatedBeyondItsLength) {
  const std::string content = "{\"a\":\"" + std::string(9000, 'x') + "\"}";
  const std::string earlier =
      "AAAjMHgB7dABDQAwCAMwL5OBm7sgIXi/"
      "EFoJnbxUGgMGDBgwYMCAAQMGDBgwYMCAAQMGDBgwYMCAAQMGDBgwYMCAAQMHBrIfRdl9zA==";
  EXPECT_EQ(store::Unpacked(earlier), content);
  EXPECT_EQ(store::Unpacked(store::Packed(content)), content);
  EXPECT_LT(store::Packed(content).size(), 200U);
  EXPECT_EQ(store::Unpacked(store::Packed("{}")), "{}");
  const std::string stream = earlier.substr(8);
  for (const std::string& damaged :
       {"AAAAAHgB" + stream, "AAAjLngB" + stream, "/////3gB" + stream, earlier.substr(0, 60),
        std::string("AAAj"), std::string("\xFF no base64"), std::string("AAAjMHgB!")}) {
    EXPECT_THROW(store::Unpacked(damaged), store::StoreError) << damaged;
  }
}

TEST(StudyDifference, IsToldFieldByFieldAndEntryByEntry) {
  const std::string before =
      R"({"kind": "VCSA Study", "name": "A", "scenario": null, "durationMinutes": 30, "data": {"Path": "/d", "Gone": 1,
          "Cells": [{"InstanceId": 7, "SystemId": 1, "CellId": 4, "Antennas": [
                       {"InstanceId": 0, "AntennaId": 1, "Selected": "N"}, {"InstanceId": 0, "AntennaId": 2, "Selected": "N"}]},
                    {"InstanceId": 8, "SystemId": 1, "CellId": 5, "Antennas": []}],
          "Modes": [{"PlmMode": 2, "Channels": [1, 2, 3]}], "DNs": [{"Dn": "5551", "DataFile": "a"}]}})";
  const std::string after =
      R"({"kind": "VCSA Study", "name": "B", "scenario": "S", "durationMinutes": 30, "data": {"Path": "/d", "Come": 2,
          "Cells": [{"InstanceId": 9, "SystemId": 1, "CellId": 6, "Antennas": []},
                    {"InstanceId": 7, "SystemId": 1, "CellId": 4, "Antennas": [
                       {"InstanceId": 0, "AntennaId": 2, "Selected": "Y"}, {"InstanceId": 0, "AntennaId": 1, "Selected": "N"}]}],
          "Modes": [{"PlmMode": 2, "Channels": [3, 2, 4, 5]}], "DNs": [{"Dn": "5551", "DataFile": "b"}]}})";
  const std::vector<store::StudyDifference> differences = store::DifferencesBetween(before, after);
  std::vector<std::string> told;
  told.reserve(differences.size());
  for (const store::StudyDifference& difference : differences) {
    told.push_back(difference.place + " " + DifferenceText(difference));
  }
  EXPECT_THAT(told, ::testing::ElementsAre("name A -> B", "scenario (nothing) -> S", "Come (nothing) -> 2",
                                           "Cells 1-4: Antennas 2: Selected N -> Y",
                                           "Cells 1-5 removed: InstanceId 8, SystemId 1, CellId 5",
                                           "Cells 1-6 added: InstanceId 9, SystemId 1, CellId 6",
                                           "Modes 2: Channels removed: 1", "Modes 2: Channels added: 4, 5",
                                           "DNs 5551: DataFile a -> b", "Gone 1 -> (nothing)"));
  EXPECT_EQ(store::SummaryOf(differences), "name, scenario, Come, Cells (3), Modes (2), DNs (1), Gone");
  EXPECT_TRUE(store::DifferencesBetween(before, before).empty());
  EXPECT_EQ(store::DifferencesBetween({}, after).size(), 10U);
  const std::string endless = R"({"kind": "VCSA Study", "Cells": [{"CellId": ")" + std::string(9000, 'x');
  const auto added = store::DifferencesBetween(R"({"kind": "VCSA Study"})", endless + "\"}]}");
  EXPECT_LT(added.at(0).place.size(), 100U) << "a list of such would repeat it with each difference";
}

/// Lists whose entries no identity of these tells apart, also inside entries; one value tells itself.
std::string ListsWithoutIdentity(const std::vector<StoredList>& lists,
                                 const std::vector<ListIdentity>& identities) {
  std::string names;
  for (const StoredList& list : lists) {
    const bool hasFields = !list.entries.empty() && list.entries[0].fields.size() > 1;
    if (hasFields && std::ranges::find(identities, list.name, &ListIdentity::list) == identities.end()) {
      names.append(list.name).append(" ");
    }
    for (const StoredEntry& entry : list.entries) names += ListsWithoutIdentity(entry.lists, identities);
  }
  return names;
}

TEST(StudyDifference, EveryKindSaysWhatTellsItsEntriesApart) {
  for (const std::string& kind : test::RichKinds()) {
    store::Study study = store::NewStudy(kind);
    test::Fill(study, 1);
    const ISubRecord& record = *study.record->SubRecord();
    EXPECT_EQ(ListsWithoutIdentity(record.StoredLists(), record.ListIdentities()), "") << kind;
  }
}

}  // namespace
}  // namespace kiv::client
