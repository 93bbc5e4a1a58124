#include "database/sql_connection.h"

#include "host/sql_rendering.h"

namespace kiv::database {

namespace {

/// The text that a stored function gave; empty for NULL.
std::string TextOf(const host::Recordset& rows) {
  const Variant result = rows.FieldAt(0);
  return result.IsNull() ? std::string() : std::get<std::string>(result.Value());
}

}  // namespace

std::shared_ptr<host::Recordset> SqlConnection::OpenQuery(const std::string& sql, int timeoutSeconds) {
  RefuseWhileWaiting(sql);
  if (timeoutSeconds == host::kQueryTimeoutSeconds) {
    if (auto rows = TakeAhead({sql})) return std::move(*rows);
  }
  Prepare(sql);
  return Run(sql, timeoutSeconds, {});
}

void SqlConnection::Announce(std::span<const host::Announcement> next) {
  if (waits_.Asking() || lost_) return;
  if (next.empty()) return DropAhead();
  SendWaiting();
  SendAhead(next);
}

void SqlConnection::VisitRows(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) {
  Prepare(sql);
  Visit(sql, timeoutSeconds, visit);
}

void SqlConnection::ExecuteSql(const std::string& sql) {
  RefuseWhileWaiting(sql);
  DropAhead();
  if (inTransaction_) {
    RefuseWhenLost(sql);
    if (waiting_.Take(sql)) return;
    SendWaiting();
    if (waiting_.Take(sql)) return;  // the first of the next batch
  }
  Run(sql, kNoTimeout, {});
}

bool SqlConnection::ColumnExists(const std::string& table, const std::string& column) {
  Prepare({});
  return FindColumn(table, column);
}

std::string SqlConnection::CallStoredFunction(const std::string& name, const std::string& argument) {
  RefuseWhileWaiting({});
  if (const auto rows = TakeAhead({name, argument})) return TextOf(**rows);
  Prepare({});
  return CallFunction(name, argument);
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
  DropAhead();
  if (inTransaction_ || TransactionIsSound()) {
    throw Error(ErrorNumber::InvalidArgument, "A transaction is already open.");
  }
  (this->*start)();
  inTransaction_ = true;
}

void SqlConnection::Commit() {
  RefuseWhileWaiting("COMMIT");
  if (!inTransaction_) throw Error(ErrorNumber::InvalidArgument, "There is no transaction to commit.");
  Prepare("COMMIT");
  CommitTransaction();
  inTransaction_ = false;
}

void SqlConnection::Rollback() {
  RefuseWhileWaiting("ROLLBACK");
  if (!inTransaction_) throw Error(ErrorNumber::InvalidArgument, "There is no transaction to roll back.");
  waiting_.Release();
  RollbackTransaction();
  inTransaction_ = false;
  lost_ = false;
}

void SqlConnection::Prepare(const std::string& sql) {
  RefuseWhileWaiting(sql);
  DropAhead();
  RefuseWhenLost(sql);
  SendWaiting();
}

void SqlConnection::RefuseWhileWaiting(const std::string& sql) const {
  if (!waits_.Asking()) return;
  throw host::DatabaseError("The database connection is waiting and cannot be used by its wait handler.",
                            sql);
}

void SqlConnection::RefuseWhenLost(const std::string& sql) const {
  if (!inTransaction_ || (TransactionIsSound() && !lost_)) return;
  // Going on would write the rest of a save without its beginning.
  throw host::DatabaseError("The transaction was ended by a failure; its changes are taken back.", sql);
}

void SqlConnection::SendWaiting() {
  if (waiting_.Empty()) return;
  lost_ = true;  // until it is known better, because its callers believe the rows written
  RunAll(waiting_.Release());
  lost_ = false;
}

void SqlConnection::RunAll(std::span<const std::string> statements) {
  for (const std::string& sql : statements) Run(sql, kNoTimeout, {});
}

}  // namespace kiv::database
