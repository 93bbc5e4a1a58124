#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "database/connection.h"
#include "database/open_error.h"
#include "database/sqlite_error.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kiv::database {

/// One SQLite file. Failures are raised as SqliteError, or as DatabaseError when a statement is refused
/// before SQLite sees it. Another program that holds the file is waited for, five seconds at most.
class SqliteDatabase : public Connection {
 public:
  using TextFunction = std::function<std::string(const std::string& argument)>;

  /// Opens a file, for reading only when it is write-protected. With CreateIfMissing an empty file counts as
  /// missing, and missing folders are made. Raises OpenError.
  static std::shared_ptr<SqliteDatabase> Open(const std::string& utf8Path, OpenMode mode);

  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;
  ~SqliteDatabase() override;

  /// The time-out covers waiting, running and fetching; 0 is no limit.
  std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql, int timeoutSeconds) override;
  /// Runs a statement; rows that it yields are dropped.
  void ExecuteSql(const std::string& sql) override;
  std::string FormatValueList(std::span<const Variant> values) const override;
  std::string FormatAssignmentList(std::span<const host::Assignment> assignments) const override;
  bool ColumnExists(const std::string& table, const std::string& column) override;
  std::string CallStoredFunction(const std::string& name, const std::string& argument) override;
  bool FieldToBoolean(const Variant& field) const override;

  void Begin() override;
  void Commit() override;
  void Rollback() override;
  bool ReadOnly() const override;
  std::string Name() const override { return path_; }

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
  /// Every statement comes through here. Null when it has no columns.
  std::shared_ptr<host::Recordset> Run(const std::string& sql,
                                       std::initializer_list<std::string_view> arguments = {},
                                       int timeoutSeconds = 0);
  StatementHandle Prepare(const std::string& sql) const;
  void RefuseFurtherStatement(const char* rest, const std::string& sql) const;
  void Bind(sqlite3_stmt* statement, std::initializer_list<std::string_view> arguments,
            const std::string& sql) const;
  bool TransactionLost() const;

  bool DeadlinePassed() const { return Clock::now() >= deadline_; }
  bool WaitForOthers(int attempt);

  std::string path_;
  sqlite3* handle_ = nullptr;
  bool inTransaction_ = false;
  Clock::time_point deadline_ = Clock::time_point::max();  ///< of the statement that runs
  Clock::time_point waitingSince_;
};

}  // namespace kiv::database
