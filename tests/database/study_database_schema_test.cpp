#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "database/open.h"
#include "database/schema.h"
#include "support/engine.h"
#include "support/rows_text.h"

namespace kiv::database {

namespace {

constexpr const char* kInsertStudy =
    "INSERT INTO kiv_study (kind, name, scenario_id, modified_by, modified_at) VALUES ('HOM', 'first', 1, "
    "'me', "
    "'2001-01-01T00:00:00') RETURNING id";

/// The study tables have to be the same in every kind of database.
class StudyDatabaseSchema : public testing::TestWithParam<test::Engine> {
 protected:
  static void AddStudy(Connection& connection) {
    connection.ExecuteSql("INSERT INTO kiv_scenario (name) VALUES ('Drive Test')");
    EXPECT_EQ(test::ValueOf(connection, kInsertStudy), Variant(1));
    connection.ExecuteSql("INSERT INTO KIV_HomStudy (Id, Path, HomMode, Hard) VALUES (1, '/data', 2, 'Y')");
  }

  const std::unique_ptr<test::TestDatabase> server_ = GetParam().start();
};

TEST_P(StudyDatabaseSchema, OlderLayoutIsUpgradedWithItsRows) {
  const auto old = server_->Connect();
  EXPECT_EQ(SchemaVersion(*old), 0);
  UpgradeSchema(*old, 1);
  EXPECT_EQ(SchemaVersion(*old), 1);
  EXPECT_FALSE(old->ColumnExists("KIV_HomStudy", "CollectData"));
  AddStudy(*old);

  const auto database = OpenStudyDatabase(server_->Name(), OpenMode::MustExist);
  EXPECT_EQ(SchemaVersion(*database), NewestSchemaVersion());
  EXPECT_EQ(test::RowsText(*database, "Path, HomMode, CollectData, StartOnFail, CurStdDatafile, CurStdPath",
                           "KIV_HomStudy"),
            "/data|2|NULL|NULL|NULL|NULL;");
  UpgradeSchema(*database, 1);
  EXPECT_EQ(SchemaVersion(*database), NewestSchemaVersion()) << "there is no way back";
  EXPECT_THROW(UpgradeSchema(*database, NewestSchemaVersion() + 1), Error);
}

TEST_P(StudyDatabaseSchema, TablesKeepTheirRules) {
  const auto database = OpenStudyDatabase(server_->Name(), OpenMode::CreateIfMissing);
  AddStudy(*database);
  EXPECT_EQ(test::ValueOf(*database, "SELECT revision FROM kiv_study"), Variant(1));
  for (const char* sql : {"INSERT INTO kiv_scenario (name) VALUES ('DRIVE test')", "DELETE FROM kiv_scenario",
                          "INSERT INTO KIV_HomStudy (Id) VALUES (2)", "UPDATE kiv_study SET name = NULL"}) {
    EXPECT_THROW(database->ExecuteSql(sql), host::DatabaseError) << sql;
  }
  database->ExecuteSql("DELETE FROM kiv_study");
  EXPECT_EQ(test::ValueOf(*database, "SELECT count(*) FROM KIV_HomStudy"), Variant(0));
  EXPECT_EQ(test::ValueOf(*database, kInsertStudy), Variant(2)) << "a number is never given twice";
}

TEST_P(StudyDatabaseSchema, FailingStepLeavesTheOldLayout) {
  const auto database = server_->Connect();
  UpgradeSchema(*database, 1);
  AddStudy(*database);
  database->ExecuteSql("ALTER TABLE KIV_HomStudy ADD COLUMN CurStdPath TEXT");
  EXPECT_THROW(UpgradeSchema(*database), host::DatabaseError);
  EXPECT_EQ(SchemaVersion(*database), 1);
  EXPECT_FALSE(database->ColumnExists("KIV_HomStudy", "CollectData"));
  EXPECT_NO_THROW(database->ExecuteSql("DELETE FROM kiv_study")) << "no transaction is left open";
}

TEST_P(StudyDatabaseSchema, ManyMayOpenAtOnce) {
  constexpr int kRounds = 10;
  constexpr int kPrograms = 4;
  for (int round = 0; round < kRounds; ++round) {
    const auto server = GetParam().start();
    // Every other round starts with nothing at all.
    if (round % 2 == 0) UpgradeSchema(*server->Connect(), 1);
    std::atomic<int> ready = 0;
    std::vector<std::string> failures(kPrograms);
    std::vector<std::thread> programs;
    programs.reserve(kPrograms);
    for (std::string& failure : failures) {
      programs.emplace_back([&failure, &ready, name = server->Name()] {
        ++ready;
        while (ready < kPrograms) std::this_thread::yield();
        try {
          const auto database = OpenStudyDatabase(name, OpenMode::CreateIfMissing);
          if (SchemaVersion(*database) != NewestSchemaVersion()) failure = "wrong version";
        } catch (const std::exception& error) {
          failure = error.what();
        }
      });
    }
    for (std::thread& program : programs) program.join();
    EXPECT_EQ(failures, std::vector<std::string>(kPrograms)) << "round " << round;
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, StudyDatabaseSchema, testing::ValuesIn(test::Engines()),
                         testing::PrintToStringParamName());

}  // namespace

}  // namespace kiv::database
