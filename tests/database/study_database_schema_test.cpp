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
#include "temp_folder.h"

namespace kiv::database {

namespace {

constexpr int kTimeoutSeconds = 60;
constexpr const char* kInsertStudy =
    "INSERT INTO kiv_study (kind, name, scenario_id, modified_by, modified_at) VALUES ('HOM', 'first', 1, "
    "'me', "
    "'2001-01-01T00:00:00') RETURNING id";

class StudyDatabaseSchema : public testing::Test {
 protected:
  std::shared_ptr<SqliteDatabase> Empty(const std::string& name) {
    return SqliteDatabase::Open(folder_.File(name), OpenMode::CreateIfMissing);
  }
  static Variant ValueOf(Connection& connection, const std::string& query) {
    return connection.OpenQuery(query, kTimeoutSeconds)->FieldAt(0);
  }
  static void AddStudy(Connection& connection) {
    connection.ExecuteSql("INSERT INTO kiv_scenario (name) VALUES ('Drive Test')");
    EXPECT_EQ(ValueOf(connection, kInsertStudy), Variant(1));
    connection.ExecuteSql("INSERT INTO KIV_HomStudy (Id, Path, HomMode, Hard) VALUES (1, '/data', 2, 'Y')");
  }

  const TempFolder folder_;
};

TEST_F(StudyDatabaseSchema, OlderLayoutIsUpgradedWithItsRows) {
  const std::string path = folder_.File("old.db");
  const auto old = Empty("old.db");
  EXPECT_EQ(SchemaVersion(*old), 0);
  UpgradeSchema(*old, 1);
  EXPECT_EQ(SchemaVersion(*old), 1);
  EXPECT_FALSE(old->ColumnExists("KIV_HomStudy", "CollectData"));
  AddStudy(*old);

  const auto database = OpenStudyDatabase(path, OpenMode::MustExist);
  EXPECT_EQ(SchemaVersion(*database), NewestSchemaVersion());
  const auto row = database->OpenQuery("SELECT * FROM KIV_HomStudy", kTimeoutSeconds);
  EXPECT_EQ(row->Field("path"), Variant("/data"));
  EXPECT_EQ(row->Field("HomMode"), Variant(2));
  for (const char* column : {"CollectData", "StartOnFail", "CurStdDatafile", "CurStdPath"}) {
    EXPECT_TRUE(row->Field(column).IsNull()) << column;
  }
  UpgradeSchema(*database, 1);
  EXPECT_EQ(SchemaVersion(*database), NewestSchemaVersion()) << "there is no way back";
  EXPECT_THROW(UpgradeSchema(*database, NewestSchemaVersion() + 1), Error);
}

TEST_F(StudyDatabaseSchema, TablesKeepTheirRules) {
  const auto database = OpenStudyDatabase(folder_.File("studies.db"), OpenMode::CreateIfMissing);
  AddStudy(*database);
  EXPECT_EQ(ValueOf(*database, "SELECT revision FROM kiv_study"), Variant(1));
  for (const char* sql : {"INSERT INTO kiv_scenario (name) VALUES ('DRIVE test')", "DELETE FROM kiv_scenario",
                          "INSERT INTO KIV_HomStudy (Id) VALUES (2)", "UPDATE kiv_study SET name = NULL"}) {
    EXPECT_THROW(database->ExecuteSql(sql), host::DatabaseError) << sql;
  }
  database->ExecuteSql("DELETE FROM kiv_study");
  EXPECT_EQ(ValueOf(*database, "SELECT count(*) FROM KIV_HomStudy"), Variant(0));
  EXPECT_EQ(ValueOf(*database, kInsertStudy), Variant(2)) << "a number is never given twice";
}

TEST_F(StudyDatabaseSchema, FailingStepLeavesTheOldLayout) {
  const auto database = Empty("odd.db");
  UpgradeSchema(*database, 1);
  AddStudy(*database);
  database->ExecuteSql("ALTER TABLE KIV_HomStudy ADD COLUMN CurStdPath TEXT");
  EXPECT_THROW(UpgradeSchema(*database), host::DatabaseError);
  EXPECT_EQ(SchemaVersion(*database), 1);
  EXPECT_FALSE(database->ColumnExists("KIV_HomStudy", "CollectData"));
  EXPECT_NO_THROW(database->ExecuteSql("DELETE FROM kiv_study")) << "no transaction is left open";
}

TEST_F(StudyDatabaseSchema, ManyMayOpenAtOnce) {
  constexpr int kRounds = 10;
  constexpr int kPrograms = 4;
  for (int round = 0; round < kRounds; ++round) {
    const std::string name = std::to_string(round) + ".db";
    // Every other round starts with no file at all.
    if (round % 2 == 0) UpgradeSchema(*Empty(name), 1);
    std::atomic<int> ready = 0;
    std::vector<std::string> failures(kPrograms);
    std::vector<std::thread> programs;
    programs.reserve(kPrograms);
    for (std::string& failure : failures) {
      programs.emplace_back([&failure, &ready, path = folder_.File(name)] {
        ++ready;
        while (ready < kPrograms) std::this_thread::yield();
        try {
          const auto database = OpenStudyDatabase(path, OpenMode::CreateIfMissing);
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

}  // namespace

}  // namespace kiv::database
