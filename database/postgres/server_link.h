#pragma once

#include <chrono>
#include <string>

#include "database/postgres/libpq.h"
#include "database/waiting.h"

namespace kiv::database {

/// A connection to a server on which no wait is without end: each one ends by the clock, or by the wait
/// handler. A wait that was given up has the server cancel what runs, and ends the connection; it is raised
/// as PostgresError.
class ServerLink {
 public:
  /// The address is one of libpq. Nothing is connected yet.
  ServerLink(std::string address, Waiting& waiting) : address_(std::move(address)), waiting_(waiting) {}

  /// Connects anew, to the first server of the address that answers; for the statement that needs it.
  void Connect(const std::string& sql);
  /// Ends the connection.
  void Drop() { connection_.reset(); }
  /// Null without a connection, which the library's functions take for a lost one.
  PGconn* Get() const { return connection_.get(); }
  /// Whether there is a connection that is not known to be lost. Does not ask the server.
  bool Alive() const;

  /// Begins to wait for answers, each within a limit; 0 is none.
  void Expect(std::chrono::seconds limit, const std::string& sql, Wait::For what = Wait::For::Answer);
  /// Waits for the next result; null at the end of those of a statement, and when the connection is lost.
  ResultHandle Next();
  /// How long connecting may take, and what belongs to it.
  std::chrono::seconds ConnectLimit() const { return connectLimit_; }

 private:
  using Clock = Waiting::Clock;

  void RenewDeadline();
  void Await(short events);
  [[noreturn]] void GiveUp(bool timedOut);

  std::string address_;
  Waiting& waiting_;
  ConnectionHandle connection_;
  std::chrono::seconds connectLimit_{};

  // What is waited for.
  std::string sql_;
  Wait::For what_ = Wait::For::Answer;
  std::chrono::seconds limit_{};
  Clock::time_point since_;
  Clock::time_point deadline_;
};

}  // namespace kiv::database
