#pragma once

#include <chrono>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "database/wait.h"
#include "host/database.h"

namespace kiv::database {

/// What to do when there is no database yet.
enum class OpenMode { MustExist, CreateIfMissing };

/// Takes the texts of one row, empty for NULL, which live until it returns. It must not use the connection.
using RowVisitor = std::function<void(std::span<const std::string_view> row)>;

/// What a host needs of its database beyond what the library asks for. One thread at a time.
class Connection : public host::Database {
 public:
  /// Starts a transaction that may write. Raises error 5 inside another one.
  virtual void Begin() = 0;
  /// Starts a transaction that only reads, from the database as it is at its first query. Raises error 5
  /// inside another one.
  virtual void BeginReading() = 0;
  /// Makes the changes since Begin lasting; when that fails the transaction is still open. Raises error 5
  /// when there is none.
  virtual void Commit() = 0;
  /// Takes back the changes since Begin. Raises error 5 when there is no transaction.
  virtual void Rollback() = 0;

  /// Runs a query and shows its rows as they come: long lists are not kept in memory.
  virtual void VisitRows(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) = 0;

  /// Sets who is asked while the connection waits; nobody is without one.
  virtual void SetWaitHandler(WaitHandler handler) = 0;
  /// Sets how long a statement without a limit of its own may take, such as a commit; 0 for as long as it
  /// wants.
  virtual void SetStatementLimit(std::chrono::seconds limit) = 0;

  /// Whether every attempt to write would fail.
  virtual bool ReadOnly() const = 0;
  /// The database as a status bar names it.
  virtual std::string Name() const = 0;
};

}  // namespace kiv::database
