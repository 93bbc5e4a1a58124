#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/open_error.h"
#include "database/sql_connection.h"
#include "database/sqlite/sqlite_error.h"
#include "database/sqlite/statement_cache.h"

struct sqlite3;

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

  /// From now on a file that was deleted, replaced or brought to another layout than this is told as such:
  /// when a statement fails, and before anything is written.
  void ExpectLayout(int version) { layout_ = version; }

  /// Gives SQL and CallStoredFunction a function with one text argument (empty for NULL) under any name, dots
  /// included; a function of that name is replaced. What it raises fails the calling statement with the same
  /// text. It may query this database, but must not keep it alive.
  void RegisterTextFunction(const std::string& name, TextFunction function);

 private:
  using Clock = std::chrono::steady_clock;
  using Arguments = std::initializer_list<std::string_view>;
  class DeadlineScope;
  static constexpr int kAnyLayout = -1;

  explicit SqliteDatabase(std::string utf8Path) : path_(std::move(utf8Path)) {}

  void Connect(OpenMode mode);
  /// Every statement comes through here. The time-out covers waiting, running and fetching.
  std::shared_ptr<host::Recordset> Run(const std::string& sql, int timeoutSeconds,
                                       Arguments arguments) override;
  void Visit(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) override;
  void Run(const std::string& sql) { Run(sql, kNoTimeout, {}); }
  void RunInserts(std::vector<RowsInsert> inserts) override;
  bool FindColumn(const std::string& table, const std::string& column) override;
  std::string CallFunction(const std::string& name, const std::string& argument) override;
  void StartTransaction() override;
  void StartReading() override { Run("BEGIN"); }
  void CommitTransaction() override;
  void RollbackTransaction() override;
  bool TransactionIsSound() const override;

  void RequireSameFile();
  void RequireDone(int code, const std::string& sql);
  /// The statement of a text with its values, maybe one that has been run before.
  PreparedStatement Ready(const std::string& sql, Arguments arguments);
  PreparedStatement ReadyShared(const std::string& sql);
  PreparedStatement TakeOrPrepare(const std::string& text, const std::string& sql);
  void Keep(PreparedStatement statement);
  StatementHandle Prepare(const std::string& text, const std::string& sql);
  void RefuseFurtherStatement(const char* rest, const std::string& sql) const;
  void RequireBound(int code, const std::string& sql);
  void InsertBound(const RowsInsert& insert);

  /// What SQLite calls while it works and while it waits for others; false ends the statement.
  bool GoesOn();
  bool WaitForOthers(int attempt);
  /// Asks the wait handler; what that one raises is raised again when SQLite has ended the statement.
  bool Ask(Wait::For what, Clock::time_point since);
  /// Raises what ended a statement. Where that was the user, its transaction can only be rolled back.
  [[noreturn]] void Fail(int code, const std::string& sql);

  std::string path_;
  sqlite3* handle_ = nullptr;
  StatementCache statements_;
  std::vector<std::int64_t> numbers_;  ///< of the statement that is looked at
  int layout_ = kAnyLayout;
  Clock::time_point deadline_ = Clock::time_point::max();  ///< of the statement that runs
  Clock::time_point startedAt_;                            ///< likewise
  Clock::time_point waitingSince_;
  bool cancelled_ = false;
  std::exception_ptr handlerFailure_;
};

}  // namespace kiv::database
