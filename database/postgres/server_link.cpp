#include "database/postgres/server_link.h"

#include <poll.h>

#include "database/postgres/cancel.h"
#include "database/postgres/postgres_error.h"
#include "database/postgres/server_login.h"
#include "database/postgres/socket_wait.h"

namespace kiv::database {

void ServerLink::Connect(const std::string& sql) {
  connection_.reset();
  Login login = LogIn(address_, waiting_, sql);
  connection_ = std::move(login.connection);
  connectLimit_ = login.limit;
  Pq().PQsetnonblocking(Get(), 1);
  // Notices would go to the standard error stream.
  Pq().PQsetNoticeProcessor(
      Get(), [](void*, const char*) {}, nullptr);
}

bool ServerLink::Alive() const {
  // Left in the middle of something, so that no answer would belong to its statement.
  if (Pq().PQtransactionStatus(Get()) == PQTRANS_ACTIVE) return false;
  // A server that is gone has said so, or its system has; that is there to read without asking it.
  while (Pq().PQstatus(Get()) == CONNECTION_OK) {
    pollfd input = {Pq().PQsocket(Get()), POLLIN, 0};
    if (poll(&input, 1, 0) <= 0) return true;
    if (Pq().PQconsumeInput(Get()) == 0) return false;
    Pq().PQisBusy(Get());  // takes the messages out, so that the end of the input comes next
  }
  return false;
}

void ServerLink::Expect(std::chrono::seconds limit, const std::string& sql, Wait::For what) {
  sql_ = sql;
  what_ = what;
  limit_ = limit;
  since_ = Clock::now();
  RenewDeadline();
}

void ServerLink::RenewDeadline() {
  deadline_ = limit_.count() == 0 ? Clock::time_point::max() : Clock::now() + limit_;
}

ResultHandle ServerLink::Next() {
  while (Pq().PQisBusy(Get()) != 0) {
    const bool unsent = Pq().PQflush(Get()) == 1;
    if (Pq().PQstatus(Get()) == CONNECTION_OK) Await(static_cast<short>(unsent ? POLLIN | POLLOUT : POLLIN));
    if (Pq().PQconsumeInput(Get()) != 0) continue;
    if (Pq().PQstatus(Get()) != CONNECTION_OK) break;
    const PostgresError error(FailureCause::ConnectionLost, ConnectionText(Get()), sql_);
    connection_.reset();
    throw error;
  }
  RenewDeadline();
  return ResultHandle(Pq().PQgetResult(Get()));
}

void ServerLink::Await(short events) {
  try {
    switch (AwaitSocket(Pq().PQsocket(Get()), events, {what_, since_, deadline_}, waiting_)) {
      case Awaited::Ready: return;
      case Awaited::TimedOut: GiveUp(true);
      case Awaited::Cancelled: GiveUp(false);
    }
  } catch (...) {  // the handler's own failures as well
    if (connection_) CancelInBackground(Get());
    connection_.reset();
    throw;
  }
}

void ServerLink::GiveUp(bool timedOut) {
  if (!timedOut) {
    throw PostgresError(FailureCause::Cancelled,
                        "The wait for the server was cancelled; its connection was closed.", sql_);
  }
  throw PostgresError(
      FailureCause::TimedOut,
      "The server gave no answer within " + std::to_string(limit_.count()) + " s; its connection was closed.",
      sql_);
}

}  // namespace kiv::database
