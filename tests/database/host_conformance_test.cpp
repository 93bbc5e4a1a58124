// What the library asks of every host's database, the fake of the library's own tests included: what that one
// would answer otherwise, those tests would not notice.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/engine.h"
#include "support/fake_database.h"

namespace kiv::database {

namespace {

const std::string kQuery = "SELECT Id, Name FROM Sample ORDER BY Id";
/// A database with the rows (1, 'one') and (2, NULL).
struct Host {
  std::string name;
  std::function<std::shared_ptr<host::Database>()> make;

  friend std::ostream& operator<<(std::ostream& stream, const Host& host) { return stream << host.name; }
};

std::vector<Host> Hosts() {
  std::vector<Host> hosts = {{"Fake", [] {
                                auto fake = std::make_shared<test::FakeDatabase>();
                                fake->answers[kQuery] = {{"Id", "Name"}, {{1, "one"}, {2, {}}}};
                                fake->missingColumns = {"SAMPLE.HEIGHT"};
                                return fake;
                              }}};
  for (const test::Engine& engine : test::Engines()) {
    hosts.push_back({engine.name, [engine] {
                       const std::shared_ptr<test::TestDatabase> database = engine.start();
                       const auto connection = database->Connect();
                       connection->ExecuteSql("CREATE TABLE Sample (Id INTEGER PRIMARY KEY, Name TEXT)");
                       connection->ExecuteSql("INSERT INTO Sample VALUES (1, 'one'), (2, NULL)");
                       // The database lives as long as its connection.
                       return std::shared_ptr<host::Database>(connection.get(),
                                                              [database, connection](host::Database*) {});
                     }});
  }
  return hosts;
}

class HostConformance : public testing::TestWithParam<Host> {
 protected:
  const std::shared_ptr<host::Database> database_ = GetParam().make();
};

TEST_P(HostConformance, ValuesAreRenderedLetterForLetter) {
  using namespace std::string_literals;
  const std::vector<Variant> values = {-7, "O'Neill", "", {}, R"(C:\x)", 2.5, true};
  EXPECT_EQ(database_->FormatValueList(values), R"(-7, 'O''Neill', '', NULL, 'C:\x', 2.5, 'Y')");
  const std::vector<host::Assignment> assignments = {{"A", 1}, {"B", "x"}};
  EXPECT_EQ(database_->FormatAssignmentList(assignments), " A = 1, B = 'x' ");
  EXPECT_THROW(database_->FormatValueList(std::vector<Variant>{"a\0b"s}), Error);
  for (const Variant& yes : {Variant("Y"), Variant(true), Variant(1), Variant(-1)}) {
    EXPECT_TRUE(database_->FieldToBoolean(yes));
  }
  for (const Variant& no : {Variant("y"), Variant("N"), Variant(""), Variant(false), Variant(0), Variant()}) {
    EXPECT_FALSE(database_->FieldToBoolean(no));
  }
}

TEST_P(HostConformance, RowsAreReadForwardByNameOrNumber) {
  const auto rows = database_->OpenQuery(kQuery, host::kQueryTimeoutSeconds);
  EXPECT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(rows->Field("nAME"), Variant("one"));
  EXPECT_EQ(rows->FieldIndex("NAME"), 1);
  EXPECT_THROW(rows->Field("Nam"), Error);
  rows->MoveNext();
  EXPECT_EQ(rows->FieldAt(0), Variant(2));
  EXPECT_TRUE(rows->FieldAt(1).IsNull());
  EXPECT_FALSE(rows->EndOfFile());
  rows->MoveNext();
  EXPECT_TRUE(rows->EndOfFile());
  EXPECT_EQ(rows->RecordCount(), 2);
  EXPECT_THROW(rows->FieldAt(0), Error);
  const auto others = database_->OpenQuery(kQuery, host::kQueryTimeoutSeconds);
  others->Close();
  EXPECT_TRUE(others->EndOfFile());
  EXPECT_THROW(others->FieldAt(0), Error);
}

TEST_P(HostConformance, ColumnsAreFound) {
  EXPECT_TRUE(database_->ColumnExists("SAMPLE", "NAME"));
  EXPECT_FALSE(database_->ColumnExists("SAMPLE", "HEIGHT"));
}

INSTANTIATE_TEST_SUITE_P(Hosts, HostConformance, testing::ValuesIn(Hosts()),
                         testing::PrintToStringParamName());

}  // namespace

}  // namespace kiv::database
