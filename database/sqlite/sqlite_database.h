#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "database/open_error.h"
#include "database/sql_connection.h"
#include "database/sqlite/sqlite_error.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kiv::database {

/// One SQLite file. Failures are raised as SqliteError, or as DatabaseError when a statement is refused
/// before SQLite sees it. Another program that holds the file is waited for, five seconds at most.
class SqliteDatabase : public SqlConnection {
 public:
  using TextFunction = std::function<std::string(const std::string& argument)>;

  /// Opens a file, for reading only when it is write-protected. With CreateIfMissing an empty file counts as
  /// missing, and missing folders are made. The wait handler is asked meanwhile. Raises OpenError.
  static std::shared_ptr<SqliteDatabase> Open(const std::string& utf8Path, OpenMode mode,
                                              WaitHandler waitHandler = {});

  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;
  ~SqliteDatabase() override;

  bool ReadOnly() const override;
  std::string Name() const override { return path_; }
  const SchemaLayout& Layout() const override;

  /// Gives SQL and CallStoredFunction a function with one text argument (empty for NULL) under any name, dots
  /// included; a function of that name is replaced. What it raises fails the calling statement with the same
  /// text. It may query this database, but must not keep it alive.
  void RegisterTextFunction(const std::string& name, TextFunction function);

 private:
  using Clock = std::chrono::steady_clock;
  struct StatementDeleter {
    void operator()(sqlite3_stmt* statement) const;
  };
  using StatementHandle = std::unique_ptr<sqlite3_stmt, StatementDeleter>;
  class DeadlineScope;

  explicit SqliteDatabase(std::string utf8Path) : path_(std::move(utf8Path)) {}

  void Connect(OpenMode mode);
  /// Every statement comes through here. The time-out covers waiting, running and fetching.
  std::shared_ptr<host::Recordset> Run(const std::string& sql, int timeoutSeconds,
                                       std::initializer_list<std::string_view> arguments) override;
  void Visit(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) override;
  void Run(const std::string& sql) { Run(sql, kNoTimeout, {}); }
  bool FindColumn(const std::string& table, const std::string& column) override;
  std::string CallFunction(const std::string& name, const std::string& argument) override;
  void StartTransaction() override;
  void StartReading() override { Run("BEGIN"); }
  void CommitTransaction() override;
  void RollbackTransaction() override;
  bool TransactionIsSound() const override;

  void RequireDone(int code, const std::string& sql);
  StatementHandle Prepare(const std::string& sql);
  void RefuseFurtherStatement(const char* rest, const std::string& sql) const;
  void Bind(sqlite3_stmt* statement, std::initializer_list<std::string_view> arguments,
            const std::string& sql) const;

  /// What SQLite calls while it works and while it waits for others; false ends the statement.
  bool GoesOn();
  bool WaitForOthers(int attempt);
  /// Asks the wait handler; what that one raises is raised again when SQLite has ended the statement.
  bool Ask(Wait::For what, Clock::time_point since);
  /// Raises what ended a statement. Where that was the user, its transaction can only be rolled back.
  [[noreturn]] void Fail(int code, const std::string& sql);

  std::string path_;
  sqlite3* handle_ = nullptr;
  Clock::time_point deadline_ = Clock::time_point::max();  ///< of the statement that runs
  Clock::time_point startedAt_;                            ///< likewise
  Clock::time_point waitingSince_;
  bool cancelled_ = false;
  std::exception_ptr handlerFailure_;
};

}  // namespace kiv::database
