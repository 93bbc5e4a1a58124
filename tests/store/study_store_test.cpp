#include "store/studies/study_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <tuple>

#include "database/schema.h"
#include "database/transaction.h"
#include "hom/detail_tab.h"
#include "hom/general_tab.h"
#include "support/studies_test.h"
#include "support/test_store.h"
#include "support/watched_connection.h"

namespace kiv::client {
namespace {

enum class Layout { Earlier, Newest };

/// The program's store on a real database, with the rest of the host faked.
class Store : public ::testing::TestWithParam<std::tuple<test::Engine, Layout>>, protected test::StudiesTest {
 protected:
  Store()
      : StudiesTest(std::get<test::Engine>(GetParam()),
                    std::get<Layout>(GetParam()) == Layout::Earlier ? 1 : database::NewestSchemaVersion()) {}

  /// A new session with valid input.
  std::unique_ptr<session::StudySession> NewSession() {
    auto session = StudiesTest::NewSession("HOM Study");
    General(*session).fdocCBScenario.SelectID(scenario_);
    General(*session).XDest.SetPath(folder_.Path());
    session->SetName("It's \"quoted\" \\ ; -- \u20AC");
    return session;
  }
  static XKivHomGen& General(const session::StudySession& session) { return test::Page<XKivHomGen>(session); }
};

std::string NameOf(const ::testing::TestParamInfo<Store::ParamType>& parameter) {
  const auto& [engine, layout] = parameter.param;
  return engine.name + (layout == Layout::Earlier ? "EarlierLayout" : "NewestLayout");
}

INSTANTIATE_TEST_SUITE_P(Layouts, Store,
                         ::testing::Combine(::testing::ValuesIn(test::Engines()),
                                            ::testing::Values(Layout::Earlier, Layout::Newest)),
                         NameOf);

TEST_P(Store, AStudyIsStoredReopenedChangedAndCopied) {
  const auto session = NewSession();
  EXPECT_TRUE(session->Modified());
  ASSERT_TRUE(session->Save("ann")) << host_.TakeMessage();
  EXPECT_FALSE(session->Modified());
  EXPECT_EQ(host_.settings->remembered["HomDuration"], "30");

  const auto again = Reopened(session->ID());
  EXPECT_EQ(again->Name(), session->Name());
  EXPECT_EQ(General(*again).fdocCBScenario.SelectedID(), scenario_);
  EXPECT_EQ(General(*again).XDest.Filename(), "h$YY$MM$DD$HH$MI.hom");
  General(*again).txtDuration.SetText("90");
  test::Page<XKivHomDetail>(*again).cmdCDMA.Click();
  EXPECT_TRUE(again->Modified());
  ASSERT_TRUE(again->Save("bob"));

  const auto studies = store_.List();
  ASSERT_EQ(studies.size(), 1U);
  EXPECT_EQ(studies[0].scenario, "Down'town");
  EXPECT_EQ(studies[0].duration, 90);
  EXPECT_EQ(studies[0].modifiedBy, "bob");
  EXPECT_EQ(Rows("SoftDrop", "KIV_HomStudy"), "Y;");

  General(*again).txtDuration.SetText("77");
  ASSERT_TRUE(again->SaveCopy("The copy", "ann"));
  EXPECT_NE(again->ID(), session->ID());
  EXPECT_EQ(again->Name(), "The copy");
  General(*again).txtDuration.SetText("78");
  ASSERT_TRUE(again->Save("ann"));
  EXPECT_EQ(store_.Load(session->ID()).record->Duration(), 90);
  EXPECT_EQ(store_.Load(again->ID()).record->Duration(), 78);
}

TEST_P(Store, ARefusedOrFailedSaveLeavesNothingBehindAndKeepsTheInput) {
  const auto session = NewSession();
  std::string shownTab;
  session->TabRequired.Connect([&](const std::string& name) { shownTab = name; });
  General(*session).txtDuration.SetText("5");
  EXPECT_FALSE(session->Save("ann"));
  EXPECT_EQ(host_.TakeMessage(), "Study Duration must be between 10 and 1439 minutes inclusive.");
  EXPECT_EQ(shownTab, "XKivHomGen");
  General(*session).txtDuration.SetText("50");
  const std::string name = session->Name();
  session->SetName("  ");
  EXPECT_THROW(session->Save("ann"), store::StoreError);
  session->SetName(name);
  database_->BreakInserts(*connection_, "KIV_HomStudy", "disk on fire");
  try {
    session->Save("ann");
    FAIL() << "stored on a broken table";
  } catch (const host::DatabaseError& error) {
    EXPECT_THAT(store::FailureText(error),
                testing::ContainsRegex("^The study database [^(]+ \\(.*disk on fire.*\\)\\. [A-Z].+\\.$"));
  }
  database_->MendInserts(*connection_, "KIV_HomStudy");
  store_.Scenarios().Remove(scenario_);
  EXPECT_THROW(session->Save("ann"), store::ScenarioDeleted);
  EXPECT_TRUE(store_.List().empty());
  EXPECT_TRUE(session->IsNew());
  EXPECT_EQ(session->ID(), 0);
  EXPECT_TRUE(session->Modified());
  EXPECT_THAT(store::FailureText(std::bad_alloc()), testing::StartsWith("There is not enough memory"));
  scenario_ = AddScenario("Harbour");
  host::TheEvents().DocumentsChanged.Raise();
  General(*session).fdocCBScenario.SelectID(scenario_);
  EXPECT_TRUE(session->Save("ann")) << host_.TakeMessage();
  EXPECT_EQ(store_.List().size(), 1U);
}

TEST_P(Store, TheLaterOfTwoSavesIsTold) {
  const auto first = NewSession();
  ASSERT_TRUE(first->Save("ann"));
  const auto second = Reopened(first->ID());
  General(*second).txtDuration.SetText("60");
  ASSERT_TRUE(second->Save("bob"));
  General(*first).txtDuration.SetText("61");
  EXPECT_THROW(first->Save("ann"), store::StudyConflict);
  EXPECT_EQ(store_.Load(first->ID()).record->Duration(), 60);
  EXPECT_TRUE(first->Modified());
  first->Reload();
  EXPECT_EQ(General(*first).txtDuration.Text(), "60");
  EXPECT_TRUE(first->Save("ann"));

  store_.Remove(first->ID(), "ann");
  EXPECT_THROW(second->Save("bob"), store::StudyConflict);
  EXPECT_EQ(Rows("count(*)", "KIV_HomStudy"), "0;");
  EXPECT_TRUE(second->SaveCopy("Saved after all", "bob"));
}

TEST_P(Store, DataThatAreMissingAreStoredAgainAndUnreadableOnesNotEdited) {
  const auto session = NewSession();
  ASSERT_TRUE(session->Save("ann"));
  connection_->ExecuteSql("DELETE FROM KIV_HomStudy");
  const auto again = Reopened(session->ID());
  EXPECT_EQ(again->Data(), store::KindData::Missing);
  General(*again).XDest.SetPath(folder_.Path());
  General(*again).XDest.SetFilename("night");
  test::Page<XKivHomDetail>(*again).chkAMPS.Click();
  ASSERT_TRUE(again->Save("ann")) << host_.TakeMessage();
  EXPECT_EQ(again->Data(), store::KindData::Complete);
  EXPECT_EQ(Rows("DataFile", "KIV_HomStudy"), "night.hom;");
  EXPECT_FALSE(again->IsNew());

  connection_->ExecuteSql("DELETE FROM KIV_HomStudy");  // this time while the study is open
  General(*again).XDest.SetFilename("day");
  ASSERT_TRUE(again->Save("ann"));
  EXPECT_EQ(Rows("DataFile", "KIV_HomStudy"), "day.hom;");

  EXPECT_THROW(store_.Load(999), store::StoreError);
  connection_->ExecuteSql("ALTER TABLE KIV_HomStudy RENAME TO gone");
  try {
    store_.Load(session->ID());
    FAIL() << "half a study was opened";
  } catch (const store::StoreError& error) {
    const std::string told = error.what();  // what could not be done, and why the driver could not
    EXPECT_NE(told.find("\" was not opened: Unable to load study types data from KIV_HomStudy ("),
              std::string::npos)
        << told;
  }
}

TEST_P(Store, ScenariosHaveNamesOfTheirOwn) {
  EXPECT_THROW(store_.Scenarios().Add("   "), store::StoreError);
  EXPECT_THROW(store_.Scenarios().Add(" DOWN'town "), store::StoreError);
  const std::int32_t other = store_.Scenarios().Add("Airport");
  EXPECT_THROW(store_.Scenarios().Rename(other, "Down'town"), store::StoreError);
  store_.Scenarios().Rename(other, "AIRPORT");  // its own name in another case
  EXPECT_EQ(store_.Scenarios().List().front().name, "AIRPORT");

  ASSERT_TRUE(NewSession()->Save("ann"));
  EXPECT_THROW(store_.Scenarios().Remove(scenario_), store::StoreError);
  store_.Scenarios().Remove(other);
  EXPECT_EQ(store_.Scenarios().List().size(), 1U);
}

TEST(StoreOnSqlite, WorksOnItsOwnConnectionWhateverTheHostHasOpen) {
  const test::FakeHost host;
  const auto database = test::SqliteEngine().start();
  const std::shared_ptr<database::SqlConnection> connection = database->Connect();
  database::UpgradeSchema(*connection);
  store::StudyStore store(connection, std::make_shared<store::ErrorLog>());
  store::Study study = store.New("HOM Study");
  study.record->HomData()->SetPath("/data");
  store.Save(study, "ann");
  EXPECT_EQ(test::RowsText(*connection, "Path", "KIV_HomStudy"), "/data;");
  EXPECT_EQ(store.Load(study.record->ID()).record->HomData()->Path(), "/data");
}

#ifdef KIV_WITH_POSTGRES
TEST(StoreOnPostgres, ReadsAStudyAsOneSaveLeftItHoweverOftenOthersSave) {
  const auto database = test::PostgresEngine().start();
  const auto connection = database->Connect();
  database::UpgradeSchema(*connection);
  const auto other = database->Connect();
  const auto watched = std::make_shared<test::WatchedConnection>(connection);
  test::TestStore store(watched);
  store::Study study = store->New("HOM Study");
  store->Save(study, "ann");
  int saves = 0;
  watched->beforeCall = [&] {
    const std::string text = "'" + std::to_string(++saves) + "'";
    database::Transaction transaction(*other);
    other->ExecuteSql("UPDATE kiv_study SET revision = revision + 1, name = " + text);
    other->ExecuteSql("UPDATE KIV_HomStudy SET Path = " + text);
    transaction.Commit();
  };
  const store::Study read = store->Load(study.record->ID());
  EXPECT_EQ(read.name, read.record->HomData()->Path());
  EXPECT_GT(saves, 3);
}
#endif

}  // namespace
}  // namespace kiv::client
