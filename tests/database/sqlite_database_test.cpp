#include "database/sqlite/sqlite_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "database/transaction.h"
#include "support/rows_text.h"
#include "support/temp_folder.h"

namespace kiv::database {

namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Property;
using testing::Throws;
using testing::ThrowsMessage;

class SqliteDatabaseTest : public testing::Test {
 protected:
  std::shared_ptr<SqliteDatabase> Connect() {
    return SqliteDatabase::Open(folder_.File("test.db"), OpenMode::CreateIfMissing);
  }
  Variant ValueOf(const std::string& query) { return test::ValueOf(*database_, query); }

  const test::OpenFolder folder_;
  const std::shared_ptr<SqliteDatabase> database_ = Connect();
};

TEST_F(SqliteDatabaseTest, SettingsKeepDataSafe) {
  EXPECT_EQ(ValueOf("PRAGMA foreign_keys"), Variant(1));
  EXPECT_EQ(ValueOf("PRAGMA synchronous"), Variant(3));
  EXPECT_EQ(ValueOf("PRAGMA journal_mode"), Variant("delete"));
  namespace fs = std::filesystem;
  EXPECT_EQ(fs::status(folder_.File("test.db")).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SqliteDatabaseTest, DoubtfulStatementsAreRefused) {
  database_->ExecuteSql("CREATE TABLE t (id INTEGER PRIMARY KEY)");
  EXPECT_THROW(ValueOf("SELECT \"idd\" FROM t"), host::DatabaseError);
  EXPECT_THROW(ValueOf("SELECT id FROM t WHERE id = ?"), host::DatabaseError);
  database_->ExecuteSql("INSERT INTO t VALUES (1)");
  EXPECT_THAT([&] { database_->ExecuteSql("INSERT INTO t VALUES (1)"); },
              Throws<SqliteError>(Property(&SqliteError::ExtendedCode, SQLITE_CONSTRAINT_PRIMARYKEY)));
}

TEST_F(SqliteDatabaseTest, TextComesAsUtf8AndBytesAsTheyAre) {
  EXPECT_EQ(ValueOf("SELECT x'6100c3bc'"), Variant(std::string("a\0\xC3\xBC", 4)));
  EXPECT_EQ(ValueOf("SELECT x''"), Variant(""));
  const auto wide = SqliteDatabase::Open(folder_.File("wide.db"), OpenMode::CreateIfMissing);
  wide->ExecuteSql("PRAGMA encoding = 'UTF-16'");
  wide->ExecuteSql("CREATE TABLE t (name TEXT)");
  wide->ExecuteSql("INSERT INTO t VALUES ('ü€😀')");
  EXPECT_EQ(test::ValueOf(*wide, "SELECT name FROM t"), Variant("ü€😀"));
}

TEST_F(SqliteDatabaseTest, FunctionFailsTheCallingStatementAndMayQueryWithinItsTimeOut) {
  database_->RegisterTextFunction("odd \"name\"", [](const std::string&) -> std::string {
    throw std::runtime_error("the network table is empty");
  });
  EXPECT_THAT([&] { database_->CallStoredFunction("odd \"name\"", "5"); },
              ThrowsMessage<host::DatabaseError>(HasSubstr("the network table is empty")));
  database_->RegisterTextFunction("odd \"name\"", [](const std::string& text) { return "[" + text + "]"; });
  EXPECT_EQ(database_->CallStoredFunction("odd \"name\"", "5"), "[5]");
  EXPECT_EQ(ValueOf("SELECT \"odd \"\"name\"\"\"(NULL)"), Variant("[]"));

  SqliteDatabase* const database = database_.get();
  database_->ExecuteSql("CREATE TABLE cell (id TEXT, tech TEXT)");
  database_->ExecuteSql("INSERT INTO cell VALUES ('5', 'CDMA')");
  database_->RegisterTextFunction("tech", [database](const std::string& id) {
    const auto rows = database->OpenQuery(
        "SELECT tech FROM cell WHERE id = " + database->FormatValueList(std::vector<Variant>{id}), 1000);
    return std::get<std::string>(rows->FieldAt(0).Value());
  });
  EXPECT_EQ(database_->CallStoredFunction("tech", "5"), "CDMA");

  database_->RegisterTextFunction("stall", [database](const std::string&) {
    database->OpenQuery(
        "WITH RECURSIVE run (n) AS (SELECT 1 UNION ALL SELECT n FROM run) SELECT count(*) FROM run", 4);
    return std::string();
  });
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THROW(database_->OpenQuery("SELECT stall('5')", 1), host::DatabaseError);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 3s);
}

TEST_F(SqliteDatabaseTest, WaitingIsPartOfTheTimeOut) {
  database_->ExecuteSql("CREATE TABLE t (id INTEGER PRIMARY KEY)");
  const auto other = Connect();
  other->ExecuteSql("BEGIN EXCLUSIVE");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT([&] { database_->OpenQuery("SELECT id FROM t", 1); },
              Throws<SqliteError>(Property(&SqliteError::Code, SQLITE_BUSY)));
  const auto waited = std::chrono::steady_clock::now() - start;
  EXPECT_GE(waited, 900ms);
  EXPECT_LT(waited, 3s);
}

TEST_F(SqliteDatabaseTest, WaitForALockMayBeGivenUp) {
  database_->ExecuteSql("CREATE TABLE t (id INTEGER PRIMARY KEY)");
  const auto other = Connect();
  other->ExecuteSql("BEGIN EXCLUSIVE");
  const auto handler = [](const Wait& wait) { return wait.what == Wait::For::Lock && wait.elapsed < 250ms; };
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT([&] { SqliteDatabase::Open(folder_.File("test.db"), OpenMode::MustExist, handler); },
              Throws<OpenError>(Property(&OpenError::Problem, OpenProblem::Cancelled)));
  database_->SetWaitHandler(handler);
  EXPECT_THAT([&] { database_->Begin(); },
              Throws<StatementError>(Property(&StatementError::Cause, FailureCause::Cancelled)));
  EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
  other->ExecuteSql("ROLLBACK");
  Transaction(*database_).Commit();
}

TEST_F(SqliteDatabaseTest, LostTransactionWritesNothingMore) {
  database_->ExecuteSql("CREATE TABLE t (id INTEGER PRIMARY KEY)");
  database_->Begin();
  database_->ExecuteSql("INSERT INTO t VALUES (1)");
  // One of the failures after which SQLite has already rolled everything back.
  EXPECT_THROW(database_->ExecuteSql("INSERT OR ROLLBACK INTO t VALUES (1)"), host::DatabaseError);
  EXPECT_THROW(database_->ExecuteSql("INSERT INTO t VALUES (2)"), host::DatabaseError);
  EXPECT_THROW(database_->Commit(), host::DatabaseError);
  database_->Rollback();
  EXPECT_EQ(ValueOf("SELECT count(*) FROM t"), Variant(0));
  const Transaction next(*database_);
}

TEST_F(SqliteDatabaseTest, EveryPathIsAFileName) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path());
  for (const std::string name : {":memory:", "file:x?mode=memory", "ü and blank.db"}) {
    SqliteDatabase::Open(name, OpenMode::CreateIfMissing)->ExecuteSql("CREATE TABLE t (id INTEGER)");
    EXPECT_TRUE(std::filesystem::is_regular_file(folder_.File(name))) << name;
  }
  std::filesystem::current_path(before);
}

}  // namespace

}  // namespace kiv::database
