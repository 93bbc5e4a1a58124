#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "database/postgres/parameterized_query.h"
#include "database/postgres/postgres_database.h"
#include "database/transaction.h"
#include "support/engine.h"
#include "support/rows_text.h"

namespace kiv::database {

namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

/// Questions that are announced. That an answer came ahead shows when somebody else changes the row before it
/// is asked for.
class PostgresReadAheadTest : public testing::Test {
 protected:
  PostgresReadAheadTest() {
    other_->ExecuteSql("CREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT)");
    other_->ExecuteSql("INSERT INTO t SELECT n, 'old' || n FROM generate_series(0, 999) n");
    server_->AddBracketFunction(*other_, "s.brackets");
  }

  static std::string NameOf(int id) {
    return "SELECT id, name FROM t WHERE id = " + std::to_string(id) + " ORDER BY id";
  }
  void Announce(const std::vector<host::Announcement>& questions) { database_->Announce(questions); }
  std::string Asked(const std::string& query) {
    return std::string(std::get<std::string>(
        database_->OpenQuery(query, host::kQueryTimeoutSeconds)->Field("name").Value()));
  }
  void OtherChanges() { other_->ExecuteSql("UPDATE t SET name = 'new' || id"); }

  const std::unique_ptr<test::TestDatabase> server_ = test::PostgresEngine().start();
  const std::shared_ptr<SqlConnection> other_ = server_->Connect();
  const std::shared_ptr<SqlConnection> database_ = server_->Connect();
};

TEST_F(PostgresReadAheadTest, AnswersComeInOrderThoughSomeAreNotAskedFor) {
  const auto third = [](int id) {
    return "SELECT 'a = ''1 ORDER BY ''' || name AS name FROM t WHERE name = 'old" + std::to_string(id) + "'";
  };
  for (const bool within : {true, false}) {
    other_->ExecuteSql("UPDATE t SET name = 'old' || id");
    if (within) database_->Begin();
    std::vector<host::Announcement> questions;
    for (int id = 0; id < 60; ++id) {
      questions.push_back({NameOf(id)});
      questions.push_back({"s.Brackets", std::to_string(id)});
      questions.push_back({third(id)});
    }
    Announce(questions);
    const std::string answered =
        "SELECT count(*) FROM pg_stat_activity WHERE state <> 'active' AND query LIKE '%''old59''%'";
    while (test::ValueOf(*other_, answered) == Variant(0)) std::this_thread::yield();
    OtherChanges();
    for (int id = 0; id < 60; id += id < 50 ? 1 : 3) {
      ASSERT_EQ(Asked(NameOf(id)), "old" + std::to_string(id));
      ASSERT_EQ(database_->CallStoredFunction("s.Brackets", std::to_string(id)),
                "[" + std::to_string(id) + "]");
      if (id % 2 == 0) {
        ASSERT_EQ(Asked(third(id)), "a = '1 ORDER BY 'old" + std::to_string(id));
      }
    }
    EXPECT_EQ(Asked(NameOf(1)), "new1") << "that was over";
    if (within) database_->Commit();
  }
}

TEST_F(PostgresReadAheadTest, WhatIsDoneOtherwiseDropsTheRest) {
  const std::vector<std::function<void()>> others = {
      [this] { database_->ExecuteSql("UPDATE t SET id = 5 WHERE id = 5"); },
      [this] { database_->ExecuteSql("INSERT INTO t (id, name) VALUES (-1, 'x')"); },
      [this] { Asked(NameOf(500)); },
      [this] { database_->ColumnExists("t", "id"); },
      [this] { database_->Announce({}); },
      [this] { database_->OpenQuery(NameOf(3), 7); },
      [this] {
        database_->Rollback();
        database_->Begin();
      }};
  for (const auto& other : others) {
    other_->ExecuteSql("UPDATE t SET name = 'old' || id");
    database_->Begin();
    Announce({{NameOf(1)}, {NameOf(2)}});
    EXPECT_EQ(Asked(NameOf(1)), "old1");
    OtherChanges();
    other();
    EXPECT_EQ(Asked(NameOf(2)), "new2");
    database_->Rollback();
  }
}

TEST_F(PostgresReadAheadTest, FailureOfAQuestionIsTheOneItWouldHaveHad) {
  const std::string bad = "SELECT 1 / 0 AS name";
  Announce({{NameOf(1)}, {bad}, {NameOf(2)}});
  EXPECT_EQ(Asked(NameOf(1)), "old1");
  EXPECT_EQ(Asked(NameOf(2)), "old2") << "what nobody asks for fails nobody";
  Announce({{NameOf(1)}, {bad}});
  EXPECT_THAT([&] { Asked(bad); }, ThrowsMessage<host::DatabaseError>(HasSubstr("division by zero")));
  {
    Transaction transaction(*database_);
    Announce({{bad}, {NameOf(1)}});
    EXPECT_THAT([&] { Asked(bad); }, ThrowsMessage<host::DatabaseError>(HasSubstr("division by zero")));
    EXPECT_THROW(Asked(NameOf(1)), host::DatabaseError);
    EXPECT_THROW(transaction.Commit(), host::DatabaseError);
  }
  Announce({{NameOf(1)}, {NameOf(2)}, {"COPY t TO STDOUT"}});
  const auto process = std::get<std::int64_t>(test::ValueOf(*database_, "SELECT pg_backend_pid()").Value());
  Announce({{NameOf(1)}, {NameOf(2)}});
  EXPECT_EQ(Asked(NameOf(1)), "old1");
  test::ValueOf(*other_, "SELECT pg_terminate_backend(" + std::to_string(process) + ", 5000)");
  EXPECT_EQ(Asked(NameOf(2)), "old2");
  EXPECT_EQ(Asked(NameOf(3)), "old3") << "connected again";
}

TEST(ParameterizedQuery, HasParametersOnlyWhereTheyMeanTheSame) {
  for (const char* text :
       {"SELECT * FROM t WHERE a = 1", "SELECT 1 FROM t ORDER BY 1",
        "SELECT * FROM t WHERE a = -1 ORDER BY b", "SELECT * FROM t WHERE a = 1 + 1 ORDER BY b",
        "SELECT * FROM t WHERE a = 1.5 ORDER BY b", "SELECT * FROM t WHERE a = 2147483648 ORDER BY b",
        "SELECT * FROM t WHERE a = '1' ORDER BY b", "SELECT * FROM t WHERE a >= 1 ORDER BY b",
        "SELECT * FROM t WHERE a = 'x ORDER BY = 1'", "SELECT * FROM t WHERE \"a\" = 1 ORDER BY b",
        "SELECT * FROM t WHERE a = 'it''s ORDER BY", "SELECT * FROM t WHERE b = E'\\' AND a = 1 ORDER BY '",
        "SELECT * FROM t WHERE a = 1::text ORDER BY b"}) {
    EXPECT_EQ(Parameterized(text).text, text);
    EXPECT_TRUE(Parameterized(text).numbers.empty());
  }
  const ParameterizedQuery shared =
      Parameterized("SELECT * FROM t WHERE x='= 7' AND a = 12 AND t.b=3 AND c = 1e5 ORDER BY 2");
  EXPECT_EQ(shared.text, "SELECT * FROM t WHERE x='= 7' AND a = $1 AND t.b=$2 AND c = 1e5 ORDER BY 2");
  EXPECT_THAT(shared.numbers, testing::ElementsAre("12", "3"));
}

}  // namespace

}  // namespace kiv::database
