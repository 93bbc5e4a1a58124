#pragma once

#include <chrono>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "database/postgres/postgres_error.h"
#include "database/postgres/read_ahead.h"
#include "database/postgres/server_link.h"
#include "database/sql_connection.h"

namespace kiv::database {

/// A database on a PostgreSQL server. Failures are raised as PostgresError, or as DatabaseError when a
/// statement is refused before the server sees it. Locks of others are waited for, five seconds at most. A
/// wait that is given up ends the connection. After its loss the next statement or transaction connects
/// again, but never within a transaction. A commit whose answer does not come raises
/// FailureCause::CommitUnknown, whatever the reason.
class PostgresDatabase : public SqlConnection {
 public:
  /// The address is one of libpq, whose environment and password file count as well; the wait handler is
  /// asked while it is connected to. Raises OpenError.
  static std::shared_ptr<PostgresDatabase> Open(const std::string& url, WaitHandler waitHandler = {});

  bool ReadOnly() const override;
  std::string Name() const override { return name_; }
  const SchemaLayout& Layout() const override;
  std::size_t AnnouncementsWanted() const override { return ReadAhead::kMostQuestions; }

 private:
  using Arguments = std::initializer_list<std::string_view>;

  PostgresDatabase(std::string name, const std::string& url)
      : name_(std::move(name)), link_(url, Waits()), ahead_(link_) {}

  std::shared_ptr<host::Recordset> Run(const std::string& sql, int timeoutSeconds,
                                       Arguments arguments) override;
  void Visit(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) override;
  void RunAll(std::span<const std::string> statements) override;
  bool FindColumn(const std::string& table, const std::string& column) override;
  std::string CallFunction(const std::string& name, const std::string& argument) override;
  void SendAhead(std::span<const host::Announcement> questions) override;
  std::optional<std::shared_ptr<host::Recordset>> TakeAhead(const host::Announcement& question) override;
  void DropAhead() override { ahead_.Drop(); }
  void StartTransaction() override { Start("BEGIN"); }
  void StartReading() override { Start("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"); }
  void CommitTransaction() override;
  void RollbackTransaction() override;
  bool TransactionIsSound() const override;

  /// Begins a session, another one where there was one; the server rolls back what that has not committed.
  void Connect(const std::string& sql);
  /// Connects again where that is needed and permitted.
  void RequireConnection(const std::string& sql);
  void Start(const char* sql);
  /// The answer to a statement that did not fail.
  ResultHandle Answered(const std::string& sql, int timeoutSeconds, Arguments arguments);
  /// Raises what went wrong with a statement; the result is null when there was no answer.
  [[noreturn]] void Fail(const PGresult* result, const std::string& sql);
  /// Starts or ends a transaction.
  void Control(const char* sql);
  ResultHandle Ask(const std::string& sql, int timeoutSeconds, Arguments arguments);
  /// The last result of what was sent, or the first that failed; null when the connection was lost before.
  ResultHandle LastResult();
  /// How long this side waits for the answer: the server has the first word.
  std::chrono::seconds AnswerLimit(int timeoutSeconds) const;
  /// The answer to the last of several statements that travel together, or to the first that fails; null when
  /// the answers ended before.
  struct Answer {
    ResultHandle result;
    std::size_t statement = 0;
  };
  Answer AskTogether(std::span<const std::string> statements, std::span<const char* const> lastValues);
  /// Takes the answers to the statements that were sent; stops at a COPY, which has to be ended by other
  /// means.
  Answer Collect(std::size_t statementCount);
  /// For what needs no limit of its own: changing it would cost more than the statement.
  int TimeoutAsItIs() const { return timeoutSeconds_ < 0 ? kNoTimeout : timeoutSeconds_; }
  /// The statement that sets another time-out than the server has.
  std::string TimeoutSetting(int timeoutSeconds);

  std::string name_;
  ServerLink link_;
  ReadAhead ahead_;
  int timeoutSeconds_ = kNoTimeout;  ///< as the server has it
};

}  // namespace kiv::database
