#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "database/statement_error.h"
#include "database/transaction.h"
#include "support/engine.h"
#include "support/fake_database.h"
#include "support/rows_text.h"

namespace kiv::database {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Property;
using testing::ThrowsMessage;
using namespace std::string_literals;

template <class Call>
void ExpectInvalidArgument(Call call, const std::string& textPart) {
  EXPECT_THAT(call, testing::Throws<Error>(AllOf(Property(&Error::Number, ErrorNumber::InvalidArgument),
                                                 Property(&Error::what, HasSubstr(textPart)))));
}

/// What every database has to do alike.
class ConnectionConformance : public testing::TestWithParam<test::Engine> {
 protected:
  void SetUp() override {
    connection_->ExecuteSql(
        "CREATE TABLE Sample (Id BIGINT PRIMARY KEY, Name TEXT, Weight DOUBLE PRECISION, Parent BIGINT "
        "REFERENCES Sample (Id) ON DELETE CASCADE)");
  }

  std::shared_ptr<host::Recordset> Query(const std::string& sql) {
    return connection_->OpenQuery(sql, host::kQueryTimeoutSeconds);
  }
  void Insert(const std::vector<Variant>& values) {
    connection_->ExecuteSql("INSERT INTO Sample VALUES (" + connection_->FormatValueList(values) + ")");
  }
  /// An insert of the form that waits for more of its kind.
  static std::string Row(int id, const std::string& parent = "NULL") {
    return "INSERT INTO Sample (Id, Parent) VALUES (" + std::to_string(id) + ", " + parent + ")";
  }
  /// The keys that a connection sees.
  static std::string Ids(Connection& connection) {
    return test::RowsText(connection, "Id", "Sample ORDER BY Id");
  }
  std::string Ids() { return Ids(*connection_); }

  const std::unique_ptr<test::TestDatabase> database_ = GetParam().start();
  const std::shared_ptr<Connection> connection_ = database_->Connect();
};

TEST_P(ConnectionConformance, TextsComeBackUnchanged) {
  Insert({1, "", {}, {}});
  for (const std::string& text :
       {""s, "O'Neill"s, "''"s, "'"s, R"(C:\new\'x\)"s, "  two blanks  "s, "tab\tline\nreturn\r"s, "ü € 😀"s,
        "%_; -- /* ? $1 :x */"s, "NULL"s, "\"quoted\""s, "007"s}) {
    connection_->ExecuteSql("DELETE FROM Sample");
    Insert({1, text, {}, {}});
    EXPECT_EQ(test::ValueOf(*connection_, "SELECT Name FROM Sample"), Variant(text));

    const std::vector<host::Assignment> changes = {{"Name", text + "'2"}, {"Weight", 2.5}};
    connection_->ExecuteSql("UPDATE Sample SET" + connection_->FormatAssignmentList(changes) +
                            "WHERE Name = " + connection_->FormatValueList(std::vector<Variant>{text}));
    const auto changed = Query("SELECT Name, Weight FROM Sample");
    EXPECT_EQ(changed->FieldAt(0), Variant(text + "'2"));
    EXPECT_EQ(changed->FieldAt(1), Variant(2.5));
  }
}

TEST_P(ConnectionConformance, RowsAreShownAsTheyCome) {
  constexpr auto kSmallest = std::numeric_limits<std::int64_t>::min();
  Insert({1, "O'Neill", {}, {}});
  Insert({kSmallest, {}, 0.5, 1});
  const std::string query = "SELECT Name, Id, Weight, Parent FROM Sample ORDER BY Id DESC";
  std::string seen;
  connection_->BeginReading();
  connection_->VisitRows(query, host::kQueryTimeoutSeconds, [&seen](std::span<const std::string_view> row) {
    for (const std::string_view text : row) seen.append(text).append("|");
  });
  EXPECT_EQ(seen, "O'Neill|1||||-9223372036854775808|0.5|1|");
  EXPECT_THROW(connection_->VisitRows(query, host::kQueryTimeoutSeconds,
                                      [](auto) { throw std::runtime_error("no more"); }),
               std::runtime_error);
  EXPECT_THROW(connection_->Begin(), Error);
  connection_->Commit();
  EXPECT_THROW(connection_->VisitRows("SELECT no_such FROM Sample", host::kQueryTimeoutSeconds, [](auto) {}),
               host::DatabaseError);
  EXPECT_EQ(Ids(), "-9223372036854775808;1;");
}

TEST_P(ConnectionConformance, NumbersAndNullKeepTheirTypes) {
  constexpr auto kSmallest = std::numeric_limits<std::int64_t>::min();
  constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();
  Insert({kSmallest, {}, 0.1, {}});
  Insert({0, "", 0.0, {}});
  Insert({kLargest, "42", -1.5e300, {}});

  const auto rows = Query("SELECT Id, Name, Weight FROM Sample ORDER BY Id");
  std::vector<std::vector<Variant>> values;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    values.push_back({rows->FieldAt(0), rows->FieldAt(1), rows->FieldAt(2)});
  }
  EXPECT_EQ(values, (std::vector<std::vector<Variant>>{
                        {kSmallest, {}, 0.1}, {std::int64_t{0}, "", 0.0}, {kLargest, "42", -1.5e300}}));
}

TEST_P(ConnectionConformance, ResultSetsNameWhatIsNotThereAndOutliveTheirTable) {
  EXPECT_EQ(Query("INSERT INTO Sample (Id) VALUES (9)"), nullptr);
  EXPECT_EQ(Query("INSERT INTO Sample (Id) VALUES (7), (8) RETURNING Id")->RecordCount(), 2);
  connection_->ExecuteSql("DELETE FROM Sample");
  Insert({1, "one", {}, {}});
  const auto rows = Query("SELECT Id, Name, Name || '!' AS Name FROM Sample");
  const auto others = Query("SELECT Name FROM Sample");
  const auto none = Query("SELECT Id FROM Sample WHERE Id = 2");
  connection_->ExecuteSql("DROP TABLE Sample");
  EXPECT_TRUE(none->EndOfFile());
  EXPECT_EQ(none->RecordCount(), 0);
  EXPECT_EQ(none->FieldIndex("ID"), 0);
  others->Close();
  ExpectInvalidArgument([&] { others->FieldAt(0); }, "at its end");
  EXPECT_EQ(rows->Field("NAME"), Variant("one")) << "the first of two fields with one name";
  EXPECT_EQ(rows->FieldAt(2), Variant("one!"));
  ExpectInvalidArgument([&] { rows->FieldAt(3); }, "number 3");
  ExpectInvalidArgument([&] { rows->FieldAt(-1); }, "number -1");
  ExpectInvalidArgument([&] { rows->Field("Nam"); }, "'Nam'");
  for (int move = 0; move < 2; ++move) rows->MoveNext();
  ExpectInvalidArgument([&] { rows->FieldAt(0); }, "at its end");
}

TEST_P(ConnectionConformance, LargeResultSetIsComplete) {
  const std::string longText(200000, 'x');
  const auto rows = Query(
      "WITH RECURSIVE run (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM run WHERE n < 5000) SELECT n, 'text ' "
      "|| n, "
      "NULL, CASE WHEN n % 1000 = 0 THEN '" +
      longText + "' ELSE '' END FROM run");
  ASSERT_EQ(rows->RecordCount(), 5000);
  for (int n = 1; n <= 5000; ++n, rows->MoveNext()) {
    ASSERT_EQ(rows->FieldAt(0), Variant(n));
    ASSERT_EQ(rows->FieldAt(1), Variant("text " + std::to_string(n)));
    ASSERT_TRUE(rows->FieldAt(2).IsNull());
    ASSERT_TRUE(rows->FieldAt(3) == Variant(n % 1000 == 0 ? longText : "")) << n;
  }
  EXPECT_TRUE(rows->EndOfFile());
}

TEST_P(ConnectionConformance, ColumnsAreFoundAsTheyAreNow) {
  EXPECT_TRUE(connection_->ColumnExists("SAMPLE", "weight"));
  EXPECT_FALSE(connection_->ColumnExists("Sample", "Height"));
  EXPECT_FALSE(connection_->ColumnExists("NoSuchTable", "Weight"));
  EXPECT_FALSE(connection_->ColumnExists("x'); DROP TABLE Sample; --", "' OR '1'='1"));
  const auto other = database_->Connect();
  EXPECT_EQ(other->OpenQuery("SELECT * FROM Sample", host::kQueryTimeoutSeconds)->RecordCount(), 0);
  connection_->ExecuteSql("ALTER TABLE Sample ADD COLUMN Height TEXT");
  Insert({1, "", {}, {}, "tall"});
  EXPECT_TRUE(connection_->ColumnExists("Sample", "Height"));
  // The other connection still has the old columns in mind when it starts its statement.
  EXPECT_EQ(other->OpenQuery("SELECT * FROM Sample", host::kQueryTimeoutSeconds)->Field("Height"),
            Variant("tall"));
}

TEST_P(ConnectionConformance, StoredFunctionIsCalledByItsDottedName) {
  database_->AddBracketFunction(*connection_, "lucent_generic.find_cell_tech");
  for (const std::string& argument : {"5"s, ""s, "O'Neill"s, "ü'); DROP TABLE Sample; --"s}) {
    EXPECT_EQ(connection_->CallStoredFunction("lucent_generic.find_cell_tech", argument),
              "[" + argument + "]");
  }
  EXPECT_THROW(connection_->CallStoredFunction("lucent_generic.no_such_function", "5"), host::DatabaseError);
  EXPECT_TRUE(connection_->ColumnExists("Sample", "Id"));
}

TEST_P(ConnectionConformance, FailuresCarryTextAndStatement) {
  Insert({1, "one", {}, {}});
  for (const std::string& sql :
       {"SELECT Nothing FROM Sample"s, "SELEKT 1"s, "INSERT INTO Sample (Id) VALUES (1)"s,
        "INSERT INTO Sample (Id, Parent) VALUES (2, 99)"s, "SELECT * FROM NoSuchTable"s, ""s,
        " -- nothing"s}) {
    try {
      Query(sql);
      ADD_FAILURE() << sql;
    } catch (const host::DatabaseError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::DatabaseFailure);
      EXPECT_EQ(error.Statement(), sql);
      EXPECT_STRNE(error.what(), "");
    }
  }
  EXPECT_THAT([&] { Query("SELECT * FROM NoSuchTable"); },
              ThrowsMessage<host::DatabaseError>(testing::ContainsRegex("[Nn]o[Ss]uch[Tt]able")));
  EXPECT_EQ(Ids(), "1;") << "the connection goes on working";
}

TEST_P(ConnectionConformance, NulAndASecondStatementAreRefusedAndTheFirstNotRun) {
  Insert({1, "one", {}, {}});
  ExpectInvalidArgument([&] { Insert({2, "a\0b"s, {}, {}}); }, "NUL");
  EXPECT_THROW(Query("SELECT 'a\0b'"s), host::DatabaseError);
  for (const std::string& sql :
       {"DELETE FROM Sample\0 WHERE Id = 1"s, "DELETE FROM Sample; DELETE FROM Sample"s,
        "DELETE FROM Sample;; /* */ SELECT 1"s, "DELETE FROM Sample; nonsense"s}) {
    EXPECT_THROW(connection_->ExecuteSql(sql), host::DatabaseError) << sql;
    EXPECT_EQ(Ids(), "1;") << sql;
  }
  connection_->ExecuteSql("DELETE FROM Sample; -- that was all\n ");
  EXPECT_EQ(Ids(), "");
}

TEST_P(ConnectionConformance, TransactionIsAllOrNothing) {
  const auto other = database_->Connect();
  {
    Transaction transaction(*connection_);
    Insert({1, "one", {}, {}});
    Insert({2, "two", {}, 1});
    transaction.Commit();
  }
  EXPECT_EQ(Ids(*other), "1;2;");
  try {
    const Transaction transaction(*connection_);
    connection_->ExecuteSql("DELETE FROM Sample WHERE Id = 1");
    EXPECT_EQ(Ids(), "") << "the child goes with its parent";
    throw std::runtime_error("the save failed");
  } catch (const std::runtime_error&) {
    EXPECT_EQ(Ids(), "1;2;");
  }
  {
    Transaction transaction(*connection_);
    ExpectInvalidArgument([&] { connection_->Begin(); }, "already");
    Insert({3, "three", {}, {}});
    transaction.Commit();
  }
  EXPECT_EQ(Ids(*other), "1;2;3;") << "the refused inner Begin left the outer one alone";
  ExpectInvalidArgument([&] { connection_->Commit(); }, "no transaction");
  ExpectInvalidArgument([&] { connection_->Rollback(); }, "no transaction");
}

TEST_P(ConnectionConformance, WaitingInsertsAreSentBeforeAnythingElse) {
  database_->AddBracketFunction(*connection_, "lucent_generic.find_cell_tech");
  connection_->ExecuteSql("CREATE TABLE Other (Id BIGINT)");
  Transaction transaction(*connection_);
  connection_->ExecuteSql(Row(1));
  connection_->ExecuteSql(Row(2, "1"));
  EXPECT_EQ(Ids(), "1;2;");
  connection_->ExecuteSql("INSERT INTO Other (Id) VALUES (7)");
  connection_->ExecuteSql(Row(3));
  connection_->ExecuteSql("INSERT INTO Other (Id) VALUES (8)");
  connection_->ExecuteSql("DELETE FROM Sample WHERE Id = 3");
  connection_->ExecuteSql(Row(3));
  connection_->ExecuteSql("INSERT INTO Sample (Id) SELECT max(Id) + 1 FROM Sample");
  EXPECT_EQ(Ids(), "1;2;3;4;");
  // Rows of two tables take turns, and every row needs the one before it.
  for (int id = 5; id <= 3000; ++id) {
    connection_->ExecuteSql(Row(id, std::to_string(id - 1)));
    if (id > 2002) connection_->ExecuteSql("INSERT INTO Other (Id) VALUES (" + std::to_string(id) + ")");
  }
  transaction.Commit();
  const auto other = database_->Connect();
  EXPECT_EQ(test::ValueOf(*other, "SELECT count(*) FROM Sample"), Variant(3000));
  EXPECT_EQ(test::ValueOf(*other, "SELECT count(*) FROM Other"), Variant(1000));
}

TEST_P(ConnectionConformance, WaitingInsertsGoWithTheirTransactionAndEndItWhenTheyFail) {
  database_->AddBracketFunction(*connection_, "lucent_generic.find_cell_tech");
  const std::vector<std::function<void()>> senders = {
      [&] { Ids(); },
      [&] { connection_->ExecuteSql("DELETE FROM Sample"); },
      [&] { connection_->ExecuteSql("INSERT INTO Sample (Id) VALUES (5) RETURNING Id"); },
      [&] { connection_->ColumnExists("Sample", "Id"); },
      [&] { connection_->CallStoredFunction("lucent_generic.find_cell_tech", "x"); },
      [&] { connection_->Commit(); },
  };
  for (const auto& send : senders) {
    connection_->Begin();
    connection_->ExecuteSql(Row(1));
    connection_->ExecuteSql(Row(2, "99"));
    connection_->ExecuteSql("INSERT INTO Sample (Id) VALUES (6)");
    const auto toldWhy = testing::Throws<host::DatabaseError>(
        AllOf(Property(&host::DatabaseError::Statement,
                       "INSERT INTO Sample (Id, Parent) VALUES (1, NULL), (2, 99)"),
              Property(&host::DatabaseError::what, testing::ContainsRegex("FOREIGN KEY|foreign key"))));
    EXPECT_THAT(send, toldWhy);
    EXPECT_THAT([&] { connection_->ExecuteSql(Row(3)); }, toldWhy);
    EXPECT_THAT([&] { Ids(); }, toldWhy);
    EXPECT_THAT([&] { connection_->Commit(); }, toldWhy);
    connection_->Rollback();
    EXPECT_EQ(Ids(), "");
  }
  connection_->ExecuteSql(Row(1));
  EXPECT_EQ(Ids(*database_->Connect()), "1;") << "nothing waits outside of one";
  EXPECT_THROW(connection_->ExecuteSql(Row(1)), host::DatabaseError);
  {
    const Transaction dropped(*connection_);
    connection_->ExecuteSql(Row(2));
  }
  Transaction next(*connection_);
  connection_->ExecuteSql(Row(4));
  next.Commit();
  EXPECT_EQ(Ids(), "1;4;");
}

TEST_P(ConnectionConformance, AWriterWaitsForTheOther) {
  const auto other = database_->Connect();
  Insert({1, "one", {}, {}});
  Transaction transaction(*other);
  other->ExecuteSql("UPDATE Sample SET Name = 'two'");
  std::thread later([&transaction] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    transaction.Commit();
  });
  EXPECT_NO_THROW(connection_->ExecuteSql("DELETE FROM Sample"));
  later.join();
}

TEST_P(ConnectionConformance, TimeOutEndsAnEndlessQuery) {
  const std::string endless =
      "WITH RECURSIVE run (n) AS (SELECT 1 UNION ALL SELECT n FROM run) SELECT count(*) FROM run";
  const auto start = std::chrono::steady_clock::now();
  try {
    connection_->OpenQuery(endless, 1);
    ADD_FAILURE();
  } catch (const host::DatabaseError& error) {
    EXPECT_EQ(error.Statement(), endless);
  }
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  EXPECT_GE(seconds.count(), 0.9);
  EXPECT_LT(seconds.count(), 2.5);
  Insert({1, "one", {}, {}});
  EXPECT_EQ(connection_->OpenQuery("SELECT Id FROM Sample", 0)->RecordCount(), 1) << "0 is no limit";
}

TEST_P(ConnectionConformance, WaitHandlerIsAskedMayGiveUpAndMustNotUseTheConnection) {
  const std::string endless =
      "WITH RECURSIVE run (n) AS (SELECT 1 UNION ALL SELECT n FROM run) SELECT count(*) FROM run";
  Insert({1, "one", {}, {}});
  const auto start = std::chrono::steady_clock::now();
  int asked = 0;
  connection_->SetWaitHandler([&](const Wait& wait) {
    EXPECT_EQ(wait.what, Wait::For::Answer);
    EXPECT_GE(wait.elapsed, std::chrono::milliseconds(100));
    EXPECT_THAT([&] { Ids(); }, ThrowsMessage<host::DatabaseError>(HasSubstr("wait handler")));
    EXPECT_THROW(connection_->Rollback(), host::DatabaseError);
    if (++asked == 5) throw std::runtime_error("of the handler");
    return asked < 3;
  });
  {
    Transaction transaction(*connection_);
    connection_->ExecuteSql("UPDATE Sample SET Name = 'two'");
    EXPECT_THAT([&] { connection_->OpenQuery(endless, 9); },
                testing::Throws<StatementError>(Property(&StatementError::Cause, FailureCause::Cancelled)));
    EXPECT_EQ(asked, 3);
    EXPECT_THROW(Ids(), host::DatabaseError);
    EXPECT_THROW(transaction.Commit(), host::DatabaseError);
  }
  asked = 4;
  EXPECT_THAT([&] { connection_->ExecuteSql(endless); }, ThrowsMessage<std::runtime_error>("of the handler"));
  connection_->SetWaitHandler({});
  connection_->SetStatementLimit(std::chrono::seconds(1));
  EXPECT_THAT([&] { connection_->ExecuteSql(endless); },
              testing::Throws<StatementError>(Property(&StatementError::Cause, FailureCause::TimedOut)));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
  EXPECT_EQ(test::ValueOf(*connection_, "SELECT Name FROM Sample"), Variant("one"));
}

INSTANTIATE_TEST_SUITE_P(Engines, ConnectionConformance, testing::ValuesIn(test::Engines()),
                         testing::PrintToStringParamName());

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

/// What the library asks of every host's database, the fake of the library's own tests included: what that
/// one would answer otherwise, those tests would not notice.
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
