#include "database/insert_batch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

namespace kiv::database {

namespace {

using testing::ElementsAre;
using namespace std::string_literals;

std::vector<std::string> Released(InsertBatch& batch) {
  std::vector<std::string> statements;
  for (RowsInsert& insert : batch.Release()) statements.push_back(std::move(insert.statement));
  return statements;
}

/// What is sent for statements that all join.
std::string Joined(std::initializer_list<std::string> statements) {
  InsertBatch batch;
  for (const std::string& sql : statements) EXPECT_TRUE(batch.Take(sql)) << sql;
  const std::vector<std::string> joined = Released(batch);
  EXPECT_TRUE(batch.Empty());
  EXPECT_EQ(joined.size(), 1U);
  return joined.front();
}

TEST(InsertBatch, RowsOfOneTableAreJoined) {
  EXPECT_EQ(Joined({"INSERT INTO KIV_Cell_List (kiv_list_id, CellId) VALUES (1, 2)"}),
            "INSERT INTO KIV_Cell_List (kiv_list_id, CellId) VALUES (1, 2)");
  EXPECT_EQ(Joined({"INSERT INTO T (A, B) VALUES ('it''s (', NULL)",
                    "INSERT INTO T (A, B) VALUES (-1.5e+300, '\\'' , ( -- \" ;')",
                    "INSERT INTO T (A, B) VALUES (null, '')", "INSERT INTO T (A, B) VALUES ('', +7)"}),
            "INSERT INTO T (A, B) VALUES ('it''s (', NULL), (-1.5e+300, '\\'' , ( -- \" ;'), (null, ''), "
            "('', +7)");
  EXPECT_EQ(Joined({"insert  into s.T_1(a)\nvalues( 'x' )", "insert  into s.T_1(a)\nvalues('y')"}),
            "insert  into s.T_1(a)\nvalues( 'x' ), ('y')");
}

std::vector<std::string> Texts(const auto&... texts) {
  return {std::string(texts)...};
}

TEST(InsertBatch, NothingElseJoins) {
  std::vector<std::string> others = Texts(
      "INSERT INTO T (A) SELECT 1", "INSERT INTO T VALUES (1)", "INSERT INTO T () VALUES (1)",
      "INSERT INTO T (A) VALUES", "INSERT INTO T (A /* ) VALUES (1) */) VALUES (1)",
      "INSERT INTO \"T\" (A) VALUES (1)", "INSERT INTO T AS X (A) VALUES (1)", "INSERT INTO T (1) VALUES (1)",
      "INSERTINTO T (A) VALUES (1)", "INSERT INTO T (A) OVERRIDING SYSTEM VALUE VALUES (1)",
      "INSERT OR IGNORE INTO T (A) VALUES (1)", "REPLACE INTO T (A) VALUES (1)", "DELETE FROM T", "", "(");
  for (const std::string& values :
       Texts("(1) RETURNING A", "(1) ON CONFLICT DO NOTHING", "(1), (2)", "(1) -- one", "(1); DELETE FROM T",
             "(1);", "(1) ", "((SELECT max(A) FROM T))", "(now())", "(CURRENT_TIMESTAMP)", "(1 + 1)",
             "('a' 'b')", "('a' || 'b')", "(E'a')", "(x'00')", "(\"A\")", "(1x)", "(1e)", "(1.)", "(- 1)",
             "(?)", "($1)", "()", "(1,)", "(1", "('", "('a", "('a''", "('a\0b')"s)) {
    others.push_back("INSERT INTO T (A) VALUES " + values);
  }
  for (const std::string& sql : others) {
    InsertBatch batch;
    EXPECT_FALSE(batch.Take(sql)) << sql;
    EXPECT_TRUE(batch.Empty()) << sql;
    ASSERT_TRUE(batch.Take("INSERT INTO T (A) VALUES (0)"));
    EXPECT_FALSE(batch.Take(sql)) << sql;
    EXPECT_THAT(Released(batch), ElementsAre("INSERT INTO T (A) VALUES (0)")) << sql;
  }
}

TEST(InsertBatch, TablesFollowInTheOrderOfTheirFirstRows) {
  InsertBatch batch;
  for (const char* sql :
       {"INSERT INTO T (A) VALUES (1)", "INSERT INTO U (A) VALUES (1)", "INSERT INTO U (A) VALUES (2)",
        "INSERT INTO U (B) VALUES (3)", "INSERT INTO T (A) VALUES (4)", "INSERT INTO TT (A) VALUES (5)",
        "INSERT INTO TT (A, B) VALUES (6, 7)", "INSERT INTO U (A) VALUES (8)"}) {
    EXPECT_TRUE(batch.Take(sql)) << sql;
  }
  EXPECT_THAT(Released(batch),
              ElementsAre("INSERT INTO T (A) VALUES (1), (4)", "INSERT INTO U (A) VALUES (1), (2), (8)",
                          "INSERT INTO U (B) VALUES (3)", "INSERT INTO TT (A) VALUES (5)",
                          "INSERT INTO TT (A, B) VALUES (6, 7)"));
}

TEST(InsertBatch, BatchesHaveAnEnd) {
  InsertBatch batch;
  int rows = 0;
  while (rows < 100000 && batch.Take("INSERT INTO T (A) VALUES (" + std::to_string(rows) + ")")) ++rows;
  EXPECT_GE(rows, 1000);
  EXPECT_LT(rows, 100000);
  std::string sent;
  for (const std::string& statement : Released(batch)) {
    EXPECT_LT(std::ranges::count(statement, ','), 1000) << "a statement has an end as well";
    sent += (sent.empty() ? "" : ", ") + statement.substr(statement.find("VALUES ") + 7);
  }
  std::string expected = "(0)";
  for (int row = 1; row < rows; ++row) expected += ", (" + std::to_string(row) + ")";
  EXPECT_EQ(sent, expected);

  int tables = 0;
  while (tables < 100000 && batch.Take("INSERT INTO T" + std::to_string(tables) + " (A) VALUES (1)"))
    ++tables;
  EXPECT_LT(tables, 1000);
  batch.Release();
  const std::string large = "INSERT INTO T (A) VALUES ('" + std::string(1000000, 'x') + "')";
  EXPECT_TRUE(batch.Take(large)) << "a large row may wait, but alone";
  EXPECT_FALSE(batch.Take("INSERT INTO T (A) VALUES (1)"));
  EXPECT_THAT(Released(batch), ElementsAre(large));
}

}  // namespace

}  // namespace kiv::database
