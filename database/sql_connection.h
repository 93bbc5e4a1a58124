#pragma once

#include <chrono>
#include <exception>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/connection.h"
#include "database/insert_batch.h"
#include "database/waiting.h"

namespace kiv::database {

class SchemaLayout;

/// What the ready adapters do alike: SQL as host/sql_rendering writes it, the state of the transaction, and
/// inserts that are sent together. Inside a transaction single-row inserts may wait; they are sent before
/// anything else is run. When one fails, its error comes from the call that had it sent, and the transaction
/// can only be rolled back: every call until then raises the failure that ended it.
class SqlConnection : public Connection {
 public:
  std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql, int timeoutSeconds) final;
  /// Runs a statement; rows that it yields are dropped.
  void ExecuteSql(const std::string& sql) final;
  bool ColumnExists(const std::string& table, const std::string& column) final;
  std::string CallStoredFunction(const std::string& name, const std::string& argument) final;
  std::string FormatValueList(std::span<const Variant> values) const final;
  std::string FormatAssignmentList(std::span<const host::Assignment> assignments) const final;
  bool FieldToBoolean(const Variant& field) const final;

  void VisitRows(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) final;

  void SetWaitHandler(WaitHandler handler) final { waits_.SetHandler(std::move(handler)); }
  void SetStatementLimit(std::chrono::seconds limit) final { statementLimit_ = limit; }

  void Begin() final { Start(&SqlConnection::StartTransaction); }
  void BeginReading() final { Start(&SqlConnection::StartReading); }
  void Commit() final;
  void Rollback() final;

  /// The study tables as this kind of database has them.
  virtual const SchemaLayout& Layout() const = 0;

 protected:
  static constexpr int kNoTimeout = 0;

  bool InTransaction() const { return inTransaction_; }
  /// What every wait of an adapter goes through.
  Waiting& Waits() { return waits_; }
  std::chrono::seconds StatementLimit() const { return statementLimit_; }
  /// From now on the transaction, where there is one, can only be rolled back.
  void LoseTransaction() { lost_ = inTransaction_; }

  /// Runs one statement with its parameters. Null when it has no columns.
  virtual std::shared_ptr<host::Recordset> Run(const std::string& sql, int timeoutSeconds,
                                               std::initializer_list<std::string_view> arguments) = 0;
  /// Runs one statement and shows its rows.
  virtual void Visit(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) = 0;
  /// Runs inserts that have waited, up to the first that fails.
  virtual void RunInserts(std::vector<RowsInsert> inserts);
  /// Runs several statements that yield no rows, up to the first that fails.
  virtual void RunAll(std::span<const std::string> statements);
  virtual bool FindColumn(const std::string& table, const std::string& column) = 0;
  virtual std::string CallFunction(const std::string& name, const std::string& argument) = 0;
  virtual void StartTransaction() = 0;
  virtual void StartReading() = 0;
  virtual void CommitTransaction() = 0;
  /// Also when the engine has ended the transaction by itself.
  virtual void RollbackTransaction() = 0;
  /// Whether the engine has a transaction open that can still be committed.
  virtual bool TransactionIsSound() const = 0;

 private:
  void Start(void (SqlConnection::*start)());
  /// Comes before every statement.
  void Prepare(const std::string& sql);
  void RefuseWhileWaiting(const std::string& sql) const;
  /// Does a part of a transaction's work, and remembers the failure that ends the transaction.
  template <class Work>
  auto Attempt(const Work& work);
  bool TransactionIsLost() const;
  /// Raises again what the transaction was lost by.
  void RefuseWhenLost(const std::string& sql) const;
  void SendWaiting();

  Waiting waits_;
  std::chrono::seconds statementLimit_ = kStatementLimit;
  bool inTransaction_ = false;
  bool lost_ = false;
  std::exception_ptr lostBecause_;
  InsertBatch waiting_;
};

}  // namespace kiv::database
