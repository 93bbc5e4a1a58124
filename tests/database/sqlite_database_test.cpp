#include "database/sqlite/sqlite_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <iterator>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

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
  EXPECT_THROW(ValueOf("SELECT zeroblob(200000000)"), host::DatabaseError);
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

struct Outcome {
  std::vector<std::string> names;
  std::vector<Variant> values;
  std::string failure;
};

/// What SQLite itself makes of a text.
Outcome OutcomeOf(sqlite3* plain, const std::string& sql) {
  Outcome outcome;
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_prepare_v2(plain, sql.c_str(), -1, &statement, nullptr);
  while (code == SQLITE_OK || code == SQLITE_ROW) {
    code = sqlite3_step(statement);
    const int columns = sqlite3_column_count(statement);
    for (int i = static_cast<int>(outcome.names.size()); i < columns; ++i) {
      outcome.names.emplace_back(sqlite3_column_name(statement, i));
    }
    for (int i = 0; i < columns && code == SQLITE_ROW; ++i) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
      switch (sqlite3_column_type(statement, i)) {
        case SQLITE_INTEGER: outcome.values.emplace_back(sqlite3_column_int64(statement, i)); break;
        case SQLITE_FLOAT: outcome.values.emplace_back(sqlite3_column_double(statement, i)); break;
        default: outcome.values.push_back(text ? Variant(text) : Variant());
      }
    }
  }
  if (code != SQLITE_DONE) outcome.failure = sqlite3_errmsg(plain);
  sqlite3_finalize(statement);
  return outcome;
}

/// Texts that look alike but for numbers, in every place that a number can have.
constexpr const char* kTexts[] = {
    "SELECT * FROM t WHERE i = @ ORDER BY @, rowid",
    "SELECT i = @, x FROM t WHERE x=@ AND n == @ OR b <= @",
    "select count(*) FILTER (WHERE i = @), @ FROM t where b=@",
    "SELECT x FROM t WHERE i = @ GROUP BY i = @ ORDER BY @ LIMIT @",
    "SELECT x FROM t WHERE x = '= @' OR x = \"x\" AND i = @ -- = @",
    "SELECT /* WHERE i = @ */ i FROM t WHERE `i` = @ AND [x] = @ AND 'a'' = @' = 'a'' = @'",
    "SELECT x, b FROM t WHERE b = x'0@' OR n = - @ OR n <> @ || @ OR i = 1@a",
    "SELECT i FROM t WHERE i = @ UNION SELECT i = @ FROM t WHERE n = @ ORDER BY 1",
    "SELECT * FROM (SELECT i = @ FROM t WHERE n = @) WHERE 1 = @",
    "SELECT i FROM t WHERE i = CAST(@ AS VARCHAR(@)) OR typeof(b) = 'integer' AND b = @",
    "SELECT i FROM t INDEXED BY part WHERE n = 7 AND i = @ AND i IN (@, @)",
    "SELECT i FROM t INDEXED BY part WHERE n = @ AND i = @",
    "SELECT i FROM t WHERE i = @ AND nowhere = @",
    "SELECT i FROM t WHERE i = @.5 OR i = 0x@ OR i = 1e@ OR i = @e1",
    "UPDATE t SET n = @, b = @ WHERE i = @ RETURNING b = @, n",
    "UPDATE t SET b = (SELECT max(n) = @ FROM t WHERE i = @) WHERE x = @",
    "DELETE FROM t WHERE n = @ AND b=@ RETURNING *",
    "INSERT INTO t (i, r, x, n, b) VALUES (@, -@, '@', 'it''s @', NULL)",
    "INSERT INTO t (i, r, x, n, b) VALUES ('@', @, @, '@.0', +@)",
    "INSERT INTO t (i, r, x, n, b) VALUES (@, @, @, @.5, 1)",
    "INSERT INTO t (i, r, x, n, b) VALUES ('@', NULL, '', 1e@, @)"};

constexpr const char* kNumbers[] = {
    "7", "7", "7", "0", "2", "007", "123456789012345678", "9223372036854775807", "9223372036854775808"};

void ExpectSame(const Outcome& expected, const std::shared_ptr<host::Recordset>& rows) {
  const auto columns = static_cast<int>(expected.names.size());
  ASSERT_EQ(rows != nullptr, columns > 0);
  for (const std::string& name : expected.names) {
    EXPECT_EQ(expected.names[static_cast<std::size_t>(rows->FieldIndex(name))], name);
  }
  std::vector<Variant> values;
  for (; rows && !rows->EndOfFile(); rows->MoveNext()) {
    for (int i = 0; i < columns; ++i) values.push_back(rows->FieldAt(i));
  }
  EXPECT_EQ(values, expected.values);
}

TEST_F(SqliteDatabaseTest, WithNumbersTakenOutATextMeansTheSame) {
  const auto other = Connect();
  sqlite3* plain = nullptr;
  sqlite3_open(folder_.File("plain.db").c_str(), &plain);
  sqlite3_db_config(plain, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  const auto change = [&](const std::string& sql) {
    other->ExecuteSql(sql);
    EXPECT_EQ(OutcomeOf(plain, sql).failure, "");
  };
  change("PRAGMA synchronous = OFF");
  database_->ExecuteSql("PRAGMA synchronous = OFF");  // what is written need not last
  change("CREATE TABLE t (i INTEGER, r REAL, x TEXT, n NUMERIC, b)");
  change("CREATE INDEX part ON t (i) WHERE n = 7");

  std::mt19937 random(1);
  const auto oneOf = [&random](const auto& all) { return all[random() % std::size(all)]; };
  constexpr int kRounds = 2000;
  for (int round = 0; round < kRounds; ++round) {
    if (round % 500 == 0) change("ALTER TABLE t ADD COLUMN c" + std::to_string(round) + " DEFAULT 5");
    std::string sql = round < kRounds - 200
                          ? oneOf(kTexts)
                          : std::string("INSERT INTO t (i, r, x, n, b) VALUES (@, -@, '@', 'it''s @', NULL)");
    for (std::size_t at = 0; (at = sql.find('@', at)) != std::string::npos;)
      sql.replace(at, 1, oneOf(kNumbers));
    if (round % 100 == 0) database_->Begin();
    const Outcome expected = OutcomeOf(plain, sql);
    SCOPED_TRACE(sql);
    try {
      // Inserts wait, and then go together.
      if (sql.starts_with("INSERT")) {
        database_->ExecuteSql(sql);
      } else {
        ExpectSame(expected, database_->OpenQuery(sql, 60));
      }
      EXPECT_EQ(expected.failure, "");
    } catch (const host::DatabaseError& error) {
      EXPECT_EQ(expected.failure, error.what());
    }
    if (round % 100 == 90) database_->Commit();
  }
  const std::string all = "SELECT *, typeof(r), typeof(n), typeof(b) FROM t ORDER BY rowid";
  ExpectSame(OutcomeOf(plain, all), database_->OpenQuery(all, 60));
  sqlite3_close(plain);
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
