#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "database/open.h"
#include "database/schema.h"
#include "database/sqlite/sqlite_database.h"
#include "database/sqlite/sqlite_file.h"
#include "database/sqlite/sqlite_layout.h"
#include "database/statement_error.h"
#include "support/child_process.h"
#include "support/engine.h"
#include "support/ordinary_user.h"
#include "support/rows_text.h"
#include "support/temp_folder.h"

namespace kiv::database {
namespace {

using std::filesystem::perms;
using testing::AllOf;
using testing::HasSubstr;
using testing::Property;
using namespace std::string_literals;

constexpr perms kMayRead = perms::owner_read | perms::group_read | perms::others_read;
constexpr perms kMayEnter = perms::owner_exec | perms::group_exec | perms::others_exec;

void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Leaves a file half changed, with the journal that takes it back.
void WriteHalfATransaction(const std::string& path) {
  test::ChildProcess writer([&path] {
    const auto database = SqliteDatabase::Open(path, OpenMode::MustExist);
    database->ExecuteSql("PRAGMA cache_size = 1");
    database->Begin();
    database->ExecuteSql("DELETE FROM kiv_scenario");
    database->ExecuteSql(
        "WITH RECURSIVE run (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM run WHERE n < 5000) INSERT INTO "
        "kiv_scenario (name) SELECT 'scenario ' || n FROM run");
    _exit(0);
  });
  ASSERT_EQ(writer.Wait(), 0);
  ASSERT_TRUE(std::filesystem::exists(path + "-journal"));
}

class StudyDatabaseOpen : public testing::Test {
 protected:
  /// The error of a failing attempt; a success fails the test.
  OpenError Failure(const std::string& path, OpenMode mode) {
    try {
      OpenStudyDatabase(path, mode);
    } catch (const OpenError& error) {
      EXPECT_THAT(error.what(), HasSubstr("'" + path + "'"));
      return error;
    }
    ADD_FAILURE() << path << " was opened";
    return {OpenProblem::Missing, path};
  }
  void ExpectProblem(OpenProblem problem, const std::string& path, OpenMode mode,
                     const std::string& textPart) {
    const OpenError error = Failure(path, mode);
    EXPECT_EQ(error.Problem(), problem) << error.what();
    EXPECT_THAT(error.what(), HasSubstr(textPart));
  }
  void ExpectProblem(OpenProblem problem, const std::string& path, const std::string& textPart) {
    ExpectProblem(problem, path, OpenMode::MustExist, textPart);
    ExpectProblem(problem, path, OpenMode::CreateIfMissing, textPart);
  }
  std::string NewStudyDatabase(const std::string& name = "studies.db") {
    OpenStudyDatabase(folder_.File(name), OpenMode::CreateIfMissing)
        ->ExecuteSql("INSERT INTO kiv_scenario VALUES (1, 'first')");
    return folder_.File(name);
  }
  static std::string ScenarioCount(Connection& connection) {
    return test::RowsText(connection, "count(*)", "kiv_scenario");
  }

  const test::OpenFolder folder_;
};

TEST_F(StudyDatabaseOpen, MissingFileIsToldOrMade) {
  const std::string path = folder_.File("new/deep/studies.db");
  EXPECT_EQ(Failure(path, OpenMode::MustExist).what(),
            "The study database '" + path + "' does not exist. Check the path, or create it."s);
  EXPECT_EQ(Failure(path, OpenMode::MustExist).CreateCommand(), "kivstudy init --database " + path);
  EXPECT_EQ(OpenError(OpenProblem::Missing, "it's $HOME").CreateCommand(),
            "kivstudy init --database 'it'\\''s $HOME'");
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path())) << "looking for a file makes nothing";
  EXPECT_EQ(ScenarioCount(*OpenStudyDatabase(path, OpenMode::CreateIfMissing)), "0;");
  EXPECT_EQ(ScenarioCount(*OpenStudyDatabase(path, OpenMode::MustExist)), "0;");
}

TEST_F(StudyDatabaseOpen, NoFileNameNoDatabase) {
  for (const std::string& path : {""s, folder_.File("new/")}) {
    ExpectProblem(OpenProblem::Missing, path, OpenMode::MustExist, "does not exist");
    ExpectProblem(OpenProblem::CannotCreate, path, OpenMode::CreateIfMissing, "no file name");
  }
  EXPECT_THAT([] { OpenStudyDatabase("a\0b"s, OpenMode::CreateIfMissing); },
              testing::ThrowsMessage<OpenError>(HasSubstr("'a?b' cannot be created")));
  ExpectProblem(OpenProblem::IsFolder, folder_.Path(), "is a folder");
  ExpectProblem(OpenProblem::NameTooLong, folder_.File(std::string(300, 'x')), "shorter");
  const std::string deep = "/" + std::string(100, 'y');
  ExpectProblem(OpenProblem::NameTooLong, folder_.File("z") + deep + deep + deep + deep + deep, "shorter");
}

TEST_F(StudyDatabaseOpen, ALinkIsFollowedUnlessItsFileIsGone) {
  const std::string link = folder_.File("link.db");
  std::filesystem::create_symlink(NewStudyDatabase(), link);
  for (const auto mode : {OpenMode::MustExist, OpenMode::CreateIfMissing}) {
    EXPECT_EQ(ScenarioCount(*OpenStudyDatabase(link, mode)), "1;");
  }
  std::filesystem::remove(folder_.File("studies.db"));
  ExpectProblem(OpenProblem::DanglingLink, link, "/studies.db). Correct the link");
  EXPECT_FALSE(std::filesystem::exists(link));
}

TEST_F(StudyDatabaseOpen, WhatBecomesOfAnOpenFileIsTold) {
  namespace fs = std::filesystem;
  struct Case {
    const char* what;
    std::function<void(const std::string& path)> happen;
  };
  std::vector<Case> cases;
  cases.push_back({"was deleted or moved", [](const std::string& path) { fs::remove(path); }});
  cases.push_back({"was replaced by another file",
                   [this](const std::string& path) { fs::rename(NewStudyDatabase("copy.db"), path); }});
  cases.push_back({"was emptied", [](const std::string& path) { fs::resize_file(path, 0); }});
  cases.push_back({"was overwritten", [](const std::string& path) { std::ofstream(path) << "words"; }});
  cases.push_back({"was cut short", [](const std::string& path) { fs::resize_file(path, 8192); }});
  cases.push_back({"was brought to layout number 99", [](const std::string& path) {
                     const auto newer = SqliteDatabase::Open(path, OpenMode::MustExist);
                     newer->ExecuteSql("PRAGMA user_version = 99");
                     newer->ExecuteSql("DROP TABLE KIV_FAF");
                   }});
  for (const Case& each : cases) {
    const std::string path = NewStudyDatabase();
    const auto database = OpenStudyDatabase(path, OpenMode::MustExist);
    each.happen(path);
    const auto toldSo = testing::Throws<StatementError>(
        AllOf(Property(&StatementError::Cause, FailureCause::FileChanged),
              Property(&StatementError::what, HasSubstr("'" + path + "' " + each.what + " while it was"))));
    EXPECT_THAT([&] { database->Begin(); }, toldSo);
    EXPECT_THAT([&] { database->ExecuteSql("INSERT INTO KIV_FAF (InstanceId) VALUES (1)"); }, toldSo);
    fs::remove(path);
  }
}

TEST_F(StudyDatabaseOpen, OtherContentIsNotTouched) {
  const std::string path = folder_.File("file");
  for (const std::string& content :
       {"x"s, std::string(5000, 'x'), "SQLite format 3\0"s, "SQLite format 3\0"s + std::string(5000, 'x')}) {
    WriteFile(path, content);
    const OpenError error = Failure(path, OpenMode::CreateIfMissing);
    EXPECT_THAT(error.Problem(), testing::AnyOf(OpenProblem::NotADatabase, OpenProblem::Foreign));
    EXPECT_THAT(error.what(), HasSubstr("choose another"));
    EXPECT_TRUE(ReadFile(path) == content);
  }
  ASSERT_EQ(mkfifo(folder_.File("pipe").c_str(), 0666), 0);
  ExpectProblem(OpenProblem::NotADatabase, folder_.File("pipe"), "choose another");

  const std::string damaged = NewStudyDatabase();
  const std::string content = ReadFile(damaged);
  WriteFile(damaged, content.substr(0, 100) + std::string(content.size() - 100, 'x'));
  ExpectProblem(OpenProblem::Damaged, damaged, "restore it from a copy");
  WriteFile(path, "");  // a database only when one is to be made
  ExpectProblem(OpenProblem::Empty, path, OpenMode::MustExist, "empty");
  EXPECT_EQ(std::filesystem::file_size(path), 0U);
  EXPECT_EQ(ScenarioCount(*OpenStudyDatabase(path, OpenMode::CreateIfMissing)), "0;");
}

TEST_F(StudyDatabaseOpen, ForeignAndNewerDatabasesAreNotTouched) {
  const auto expectUntouched = [this](const std::string& change, OpenProblem problem, const char* told) {
    const std::string path = NewStudyDatabase(change);
    const auto before = SqliteDatabase::Open(path, OpenMode::MustExist);
    before->ExecuteSql(change);
    EXPECT_THROW(UpgradeSchema(*before), OpenError) << "it became one while the file was open";
    // Even playing back its journal is the business of the other program.
    WriteHalfATransaction(path);
    const std::string content = ReadFile(path);
    const std::string journal = ReadFile(path + "-journal");
    ExpectProblem(problem, path, told);
    EXPECT_TRUE(ReadFile(path) == content);
    EXPECT_TRUE(ReadFile(path + "-journal") == journal);
  };
  expectUntouched("PRAGMA application_id = 7", OpenProblem::Foreign, "another program");
  expectUntouched("PRAGMA user_version = 99", OpenProblem::Newer, "install that version");
  const auto opened = SqliteDatabase::Open(folder_.File("other.db"), OpenMode::CreateIfMissing);
  opened->ExecuteSql("CREATE TABLE theirs (id INTEGER)");
  EXPECT_THROW(UpgradeSchema(*opened), OpenError);
  EXPECT_FALSE(opened->ColumnExists("kiv_study", "id"));
}

TEST_F(StudyDatabaseOpen, WhatMayNotBeReadOrWrittenIsTold) {
  const std::string closedFile = NewStudyDatabase("closed.db");
  std::filesystem::permissions(closedFile, perms::none);
  std::filesystem::create_directory(folder_.File("closed"));
  std::filesystem::create_directory(folder_.File("fixed"));
  const std::string inClosedFolder = NewStudyDatabase("closed/studies.db");
  std::filesystem::permissions(folder_.File("closed"), perms::none);
  std::filesystem::permissions(folder_.File("fixed"), kMayRead | kMayEnter);
  const std::string empty = folder_.File("empty.db");
  WriteFile(empty, "");
  WriteFile(folder_.File("plain"), "x");
  const std::string older = folder_.File("older.db");
  const auto old = SqliteDatabase::Open(older, OpenMode::CreateIfMissing);
  UpgradeSchema(*old, 1);
  old->ExecuteSql("INSERT INTO kiv_scenario VALUES (1, 'first')");
  for (const std::string& file : {older, empty}) std::filesystem::permissions(file, kMayRead);

  const test::AsOrdinaryUser ordinary;
  ExpectProblem(OpenProblem::Unreadable, closedFile, "Permission denied");
  ExpectProblem(OpenProblem::Unreadable, inClosedFolder, "Permission denied");
  for (const auto& [file, told] :
       {std::pair{"fixed/studies.db", "(unable to open database file). Choose a folder"},
        {"fixed/sub/studies.db", "Permission denied"},
        {"plain/studies.db", "Choose a folder"},
        {"empty.db", "write-protected"}}) {
    ExpectProblem(OpenProblem::CannotCreate, folder_.File(file), OpenMode::CreateIfMissing, told);
  }
  for (const OpenMode mode : {OpenMode::MustExist, OpenMode::CreateIfMissing}) {
    const auto database = OpenStudyDatabase(older, mode);
    EXPECT_TRUE(database->ReadOnly());
    EXPECT_EQ(SchemaVersion(*database), 1);
    EXPECT_EQ(ScenarioCount(*database), "1;");
    EXPECT_THROW(database->ExecuteSql("DELETE FROM kiv_scenario"), host::DatabaseError);
  }
}

TEST_F(StudyDatabaseOpen, LockedDatabaseIsTold) {
  const std::string path = NewStudyDatabase();
  const auto other = OpenStudyDatabase(path, OpenMode::MustExist);
  other->ExecuteSql("BEGIN EXCLUSIVE");
  ExpectProblem(OpenProblem::Locked, path, OpenMode::MustExist, "try again");
  other->ExecuteSql("ROLLBACK");
  EXPECT_EQ(ScenarioCount(*OpenStudyDatabase(path, OpenMode::MustExist)), "1;");
}

TEST_F(StudyDatabaseOpen, LookingAtAFileKeepsTheLocksOfThisProcess) {
  const std::string path = NewStudyDatabase();
  const auto writer = OpenStudyDatabase(path, OpenMode::MustExist);
  writer->Begin();
  EXPECT_EQ(InspectFile(path).applicationId, kApplicationId);
  test::ChildProcess other([&path] {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    const int file = open(path.c_str(), O_RDWR);
    if (fcntl(file, F_GETLK, &lock) != 0 || lock.l_type == F_UNLCK) throw OpenProblem::Locked;
  });
  EXPECT_EQ(other.Wait(), 0);
}

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
  UpgradeSchema(*old, 7);
  old->ExecuteSql(
      "INSERT INTO luc_cfg_cdma_car_chans (cdma_carr_id, system_id, ecp, cell, keyid) VALUES (5, 1, 2, 3, "
      "4)");

  const auto database = OpenStudyDatabase(server_->Name(), OpenMode::MustExist);
  EXPECT_EQ(test::RowsText(*database, "cdma_carr_id, system_id, ecp, cell, keyid", "luc_cfg_cdma_car_chans"),
            "5|1|2|3|4;");
  if (database->Layout().Engine() == "sqlite") {
    EXPECT_EQ(test::ValueOf(*database, "PRAGMA integrity_check"), Variant("ok"));
  }
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
