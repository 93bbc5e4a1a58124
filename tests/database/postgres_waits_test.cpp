#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "database/open.h"
#include "database/open_error.h"
#include "database/postgres/postgres_database.h"
#include "database/transaction.h"
#include "support/engine.h"
#include "support/faulty_proxy.h"
#include "support/rows_text.h"

namespace kiv::database {

namespace {

using namespace std::chrono_literals;
using Answers = test::FaultyProxy::Answers;
using testing::HasSubstr;
using testing::Property;
using testing::Throws;

auto Fails(FailureCause cause) {
  return Throws<StatementError>(Property(&StatementError::Cause, cause));
}

/// What happens to a program whose server, or the way to it, falls silent. No case takes longer than some
/// seconds.
class PostgresWaitsTest : public testing::Test {
 protected:
  ~PostgresWaitsTest() override { EXPECT_LT(std::chrono::steady_clock::now() - start_, 9s); }

  std::string Address(const std::string& host) const {
    return server_->Name().substr(0, hostPlace_) + host + "&connect_timeout=2";
  }
  std::string Host() const { return server_->Name().substr(hostPlace_); }
  std::string Rows() { return test::RowsText(*direct_, "id", "t ORDER BY id"); }

  const std::unique_ptr<test::TestDatabase> server_ = test::PostgresEngine().start();
  const std::size_t hostPlace_ = server_->Name().find("host=") + 5;
  test::FaultyProxy proxy_{Host()};
  const std::shared_ptr<SqlConnection> direct_ = server_->Connect();
  const std::shared_ptr<PostgresDatabase> database_ = PostgresDatabase::Open(Address(proxy_.Host()));
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

TEST_F(PostgresWaitsTest, WithheldAnswerEndsByTheClockAndTheStatementIsCancelled) {
  direct_->ExecuteSql("CREATE TABLE t (id INTEGER)");
  database_->SetStatementLimit(1s);
  proxy_.answers = Answers::Stay;
  EXPECT_THAT([&] { database_->OpenQuery("SELECT 1", 1); }, Fails(FailureCause::TimedOut));
  proxy_.answers = Answers::Pass;
  {
    const Transaction transaction(*database_);
    database_->ExecuteSql("LOCK TABLE t");
    EXPECT_THAT([&] { database_->ExecuteSql("SELECT pg_sleep(600)"); }, Fails(FailureCause::TimedOut));
    EXPECT_THROW(database_->ExecuteSql("DELETE FROM t"), host::DatabaseError);
  }
  direct_->ExecuteSql("INSERT INTO t VALUES (1)");  // the lock is not held any more
  EXPECT_EQ(test::ValueOf(*database_, "SELECT id FROM t"), Variant(1));
}

TEST_F(PostgresWaitsTest, StoppedServerProcessIsGivenUp) {
  const auto process = static_cast<pid_t>(
      std::get<std::int64_t>(test::ValueOf(*database_, "SELECT pg_backend_pid()").Value()));
  ASSERT_EQ(kill(process, SIGSTOP), 0);
  EXPECT_THAT([&] { database_->OpenQuery("SELECT 1", 1); },
              Throws<StatementError>(Property(&StatementError::what, HasSubstr("no answer within 2 s"))));
  EXPECT_EQ(test::ValueOf(*database_, "SELECT 1"), Variant(1));
  kill(process, SIGCONT);
}

TEST_F(PostgresWaitsTest, CommitWithoutAnswerIsOfUnknownOutcome) {
  direct_->ExecuteSql("CREATE TABLE t (id INTEGER)");
  database_->SetStatementLimit(1s);
  const auto commit = [&](const std::string& id, Answers answers, FailureCause cause) {
    Transaction transaction(*database_);
    database_->ExecuteSql("INSERT INTO t SELECT " + id);
    proxy_.answers = answers;
    EXPECT_THAT([&] { transaction.Commit(); }, Fails(cause)) << id;
    proxy_.answers = Answers::Pass;
  };
  commit("1", Answers::Break, FailureCause::CommitUnknown);
  commit("2", Answers::Stay, FailureCause::CommitUnknown);
  database_->SetWaitHandler([](const Wait&) { return false; });
  commit("3", Answers::Stay, FailureCause::CommitUnknown);
  database_->SetWaitHandler([](const Wait&) -> bool { throw std::runtime_error("of the handler"); });
  commit("4", Answers::Stay, FailureCause::CommitUnknown);
  database_->SetWaitHandler({});
  EXPECT_EQ(Rows(), "1;2;3;4;") << "each was stored all the same";

  direct_->ExecuteSql("ALTER TABLE t ADD UNIQUE (id) DEFERRABLE INITIALLY DEFERRED");
  commit("1", Answers::Pass, FailureCause::Constraint);
}

TEST_F(PostgresWaitsTest, SilentServersAreGivenUpForTheNext) {
  proxy_.answers = Answers::Stay;
  // A port whose queue is full answers nothing at all.
  const int full = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in place{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
  socklen_t length = sizeof place;
  ASSERT_EQ(bind(full, reinterpret_cast<sockaddr*>(&place), length), 0);
  listen(full, 0);
  getsockname(full, reinterpret_cast<sockaddr*>(&place), &length);
  std::array<int, 4> waiting{};
  for (int& client : waiting) {
    client = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    EXPECT_LE(connect(client, reinterpret_cast<const sockaddr*>(&place), length), 0);
  }
  const std::string port = std::to_string(ntohs(place.sin_port));
  const auto next = PostgresDatabase::Open(Address("127.0.0.1," + proxy_.Host() + "," + Host()) +
                                           "&port=" + port + ",5432,5432");
  EXPECT_EQ(test::ValueOf(*next, "SELECT 1"), Variant(1));
  const auto handler = [](const Wait& wait) {
    return wait.what == Wait::For::Connection && wait.elapsed < 300ms;
  };
  EXPECT_THAT([&] { OpenStudyDatabase(Address(proxy_.Host()), OpenMode::CreateIfMissing, handler); },
              Throws<OpenError>(Property(&OpenError::Problem, OpenProblem::Cancelled)));
  for (const int client : waiting) close(client);
  close(full);
}

TEST_F(PostgresWaitsTest, DeadPathCostsOneAttemptToConnect) {
  proxy_.answers = Answers::Break;
  EXPECT_THROW(database_->OpenQuery("SELECT 1", 1), host::DatabaseError);
  proxy_.answers = Answers::Stay;
  EXPECT_THAT([&] { database_->Begin(); }, Fails(FailureCause::TimedOut));
  EXPECT_LT(std::chrono::steady_clock::now() - start_, 3500ms);
}

}  // namespace

}  // namespace kiv::database
