#include "database/sql_connection.h"

#include <exception>
#include <utility>

#include "host/sql_rendering.h"

namespace kiv::database {

template <class Work>
auto SqlConnection::Attempt(const Work& work) {
  try {
    return work();
  } catch (...) {
    if (TransactionIsLost() && !lostBecause_) lostBecause_ = std::current_exception();
    throw;
  }
}

std::shared_ptr<host::Recordset> SqlConnection::OpenQuery(const std::string& sql, int timeoutSeconds) {
  return Attempt([&] {
    Prepare(sql);
    return Run(sql, timeoutSeconds, {});
  });
}

void SqlConnection::VisitRows(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) {
  Attempt([&] {
    Prepare(sql);
    Visit(sql, timeoutSeconds, visit);
  });
}

void SqlConnection::ExecuteSql(const std::string& sql) {
  RefuseWhileWaiting(sql);
  Attempt([&] {
    if (inTransaction_) {
      RefuseWhenLost(sql);
      if (waiting_.Take(sql)) return;
      SendWaiting();
      if (waiting_.Take(sql)) return;  // the first of the next batch
    }
    Run(sql, kNoTimeout, {});
  });
}

bool SqlConnection::ColumnExists(const std::string& table, const std::string& column) {
  return Attempt([&] {
    Prepare({});
    return FindColumn(table, column);
  });
}

std::string SqlConnection::CallStoredFunction(const std::string& name, const std::string& argument) {
  return Attempt([&] {
    Prepare({});
    return CallFunction(name, argument);
  });
}

std::string SqlConnection::FormatValueList(std::span<const Variant> values) const {
  return host::RenderValueList(values);
}

std::string SqlConnection::FormatAssignmentList(std::span<const host::Assignment> assignments) const {
  return host::RenderAssignmentList(assignments);
}

bool SqlConnection::FieldToBoolean(const Variant& field) const {
  return host::RenderedAsTrue(field);
}

void SqlConnection::Start(void (SqlConnection::*start)()) {
  RefuseWhileWaiting({});
  if (inTransaction_ || TransactionIsSound()) {
    throw Error(ErrorNumber::InvalidArgument, "A transaction is already open.");
  }
  (this->*start)();
  inTransaction_ = true;
}

void SqlConnection::Commit() {
  RefuseWhileWaiting("COMMIT");
  if (!inTransaction_) throw Error(ErrorNumber::InvalidArgument, "There is no transaction to commit.");
  Attempt([this] {
    Prepare("COMMIT");
    CommitTransaction();
  });
  inTransaction_ = false;
}

void SqlConnection::Rollback() {
  RefuseWhileWaiting("ROLLBACK");
  if (!inTransaction_) throw Error(ErrorNumber::InvalidArgument, "There is no transaction to roll back.");
  waiting_.Release();
  RollbackTransaction();
  inTransaction_ = false;
  lost_ = false;
  lostBecause_ = nullptr;
}

void SqlConnection::Prepare(const std::string& sql) {
  RefuseWhileWaiting(sql);
  RefuseWhenLost(sql);
  SendWaiting();
}

void SqlConnection::RefuseWhileWaiting(const std::string& sql) const {
  if (!waits_.Asking()) return;
  throw host::DatabaseError("The database connection is waiting and cannot be used by its wait handler.",
                            sql);
}

bool SqlConnection::TransactionIsLost() const {
  return inTransaction_ && (lost_ || !TransactionIsSound());
}

void SqlConnection::RefuseWhenLost(const std::string& sql) const {
  if (!TransactionIsLost()) return;
  // Going on would write the rest of a save without its beginning.
  if (lostBecause_) std::rethrow_exception(lostBecause_);
  throw host::DatabaseError(
      "The transaction was ended from within, and its changes are taken back. Begin another one.", sql);
}

void SqlConnection::SendWaiting() {
  if (waiting_.Empty()) return;
  lost_ = true;  // until it is known better, because its callers believe the rows written
  RunInserts(waiting_.Release());
  lost_ = false;
}

void SqlConnection::RunInserts(std::vector<RowsInsert> inserts) {
  std::vector<std::string> statements;
  statements.reserve(inserts.size());
  for (RowsInsert& insert : inserts) statements.push_back(std::move(insert.statement));
  RunAll(statements);
}

void SqlConnection::RunAll(std::span<const std::string> statements) {
  for (const std::string& sql : statements) Run(sql, kNoTimeout, {});
}

}  // namespace kiv::database
