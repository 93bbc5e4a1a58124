#include "database/sqlite/sqlite_database.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "database/row_buffer.h"
#include "database/shared_text.h"
#include "database/sqlite/bound_insert.h"
#include "database/sqlite/file_change.h"
#include "database/sqlite/result_row.h"
#include "database/sqlite/sqlite_file.h"
#include "database/sqlite/sqlite_layout.h"

namespace kiv::database {

namespace {

using namespace std::chrono_literals;

constexpr auto kLongestWait = 5s;
constexpr int kLongestSleepMilliseconds = 25;
/// Bytes of a value and of a statement: more than any history of a study needs.
constexpr int kLongestValue = 100'000'000;
/// Steps of SQLite's machine between two looks at the clock: some microseconds.
constexpr int kStepsPerDeadlineCheck = 1000;

/// Makes the folder of a database that is to be created, and refuses what cannot be opened.
void PrepareFile(const std::string& utf8Path, FileKind kind, OpenMode mode) {
  const bool mayCreate = mode == OpenMode::CreateIfMissing;
  switch (kind) {
    case FileKind::Missing: {
      if (!mayCreate) throw OpenError(OpenProblem::Missing, utf8Path);
      const std::filesystem::path path = PathFromUtf8(utf8Path);
      if (!path.has_filename() || utf8Path.find('\0') != std::string::npos) {
        throw OpenError(OpenProblem::CannotCreate, utf8Path, "this is no file name");
      }
      std::error_code error;
      std::filesystem::create_directories(std::filesystem::absolute(path).parent_path(), error);
      if (error) throw OpenError(OpenProblem::CannotCreate, utf8Path, error.message());
      // For its owner alone, and so its journals. Not by opening it, because closing it would drop the locks
      // of another connection. What forbids a file here is told when SQLite opens it.
      mknod(path.c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0);
      return;
    }
    case FileKind::Folder: throw OpenError(OpenProblem::IsFolder, utf8Path);
    case FileKind::Empty:
      if (!mayCreate) throw OpenError(OpenProblem::Empty, utf8Path);
      return;
    case FileKind::Special:
    case FileKind::OtherContent: throw OpenError(OpenProblem::NotADatabase, utf8Path);
    case FileKind::SqliteDatabase: return;
  }
}

std::string QuotedName(const std::string& name) {
  std::string quoted = "\"";
  for (const char character : name) {
    if (character == '"') quoted += '"';
    quoted += character;
  }
  return quoted + '"';
}

/// A changed file is no reason for a statement that has to wait, or breaks a rule of its tables.
bool MayComeFromChangedFile(const SqliteError& error) {
  switch (error.Code()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_CONSTRAINT:
    case SQLITE_FULL:
    case SQLITE_NOMEM: return false;
    default: return true;
  }
}

void CallTextFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
  try {
    const auto& function = *static_cast<const SqliteDatabase::TextFunction*>(sqlite3_user_data(context));
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
    const auto length = static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]));
    const std::string result = function(text ? std::string(text, length) : std::string());
    sqlite3_result_text64(context, result.data(), result.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  } catch (...) {
    sqlite3_result_error(context, "The function failed.", -1);
  }
}

}  // namespace

/// Limits the statement that runs. One that a registered function runs inside it cannot outlast the outer
/// one.
class SqliteDatabase::DeadlineScope {
 public:
  DeadlineScope(SqliteDatabase& database, int timeoutSeconds)
      : database_(database), deadline_(database.deadline_), startedAt_(database.startedAt_) {
    const std::chrono::seconds limit =
        timeoutSeconds > 0 ? std::chrono::seconds(timeoutSeconds) : database.StatementLimit();
    const Clock::time_point now = Clock::now();
    if (deadline_ == Clock::time_point::max()) {
      database.startedAt_ = now;
      database.cancelled_ = false;
    }
    if (limit.count() > 0) database.deadline_ = std::min(deadline_, now + limit);
  }
  DeadlineScope(const DeadlineScope&) = delete;
  DeadlineScope& operator=(const DeadlineScope&) = delete;
  ~DeadlineScope() {
    database_.deadline_ = deadline_;
    database_.startedAt_ = startedAt_;
  }

 private:
  SqliteDatabase& database_;
  Clock::time_point deadline_;
  Clock::time_point startedAt_;
};

std::shared_ptr<SqliteDatabase> SqliteDatabase::Open(const std::string& utf8Path, OpenMode mode,
                                                     WaitHandler waitHandler) {
  const FileKind kind = InspectFile(utf8Path).kind;
  PrepareFile(utf8Path, kind, mode);
  std::shared_ptr<SqliteDatabase> database(new SqliteDatabase(utf8Path));
  database->SetWaitHandler(std::move(waitHandler));
  try {
    database->Connect(mode);
  } catch (const SqliteError& error) {
    throw AsOpenError(error, utf8Path, kind);
  }
  return database;
}

SqliteDatabase::~SqliteDatabase() {
  statements_.Clear();  // with one left, the connection would stay open
  sqlite3_close(handle_);
}

void SqliteDatabase::Connect(OpenMode mode) {
  // Without SQLite's own locking: a connection belongs to one thread at a time, and reading gets faster.
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                    (mode == OpenMode::CreateIfMissing ? SQLITE_OPEN_CREATE : 0);
  if (sqlite3_open_v2(SqliteFileName(path_).c_str(), &handle_, flags, nullptr) != SQLITE_OK) {
    throw LastSqliteError(handle_, {});
  }
  sqlite3_extended_result_codes(handle_, 1);
  sqlite3_progress_handler(
      handle_, kStepsPerDeadlineCheck,
      [](void* self) { return static_cast<SqliteDatabase*>(self)->GoesOn() ? 0 : 1; }, this);
  sqlite3_busy_handler(
      handle_,
      [](void* self, int attempt) {
        return static_cast<SqliteDatabase*>(self)->WaitForOthers(attempt) ? 1 : 0;
      },
      this);
  // A misspelt name in double quotes is an error, not a text.
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  // What stands in a file that somebody sent must not call functions of ours.
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // Nor hold a value that would take minutes to look at.
  sqlite3_limit(handle_, SQLITE_LIMIT_LENGTH, kLongestValue);
  // The journal stays a rollback journal, SQLite's default: write-ahead logging fails on network drives.
  // A commit is the removal of the journal: EXTRA also has the folder written out, so that after a power
  // failure the journal does not come back and take away what was told as saved.
  Run("PRAGMA synchronous = EXTRA");
  Run("PRAGMA foreign_keys = ON");
  Run("SELECT 1 FROM sqlite_schema LIMIT 1");  // the first read, which finds out whether the file is sound
}

std::shared_ptr<host::Recordset> SqliteDatabase::Run(const std::string& sql, int timeoutSeconds,
                                                     Arguments arguments) {
  const DeadlineScope scope(*this, timeoutSeconds);
  PreparedStatement prepared = Ready(sql, arguments);
  sqlite3_stmt* const statement = prepared.handle.get();

  int code = sqlite3_step(statement);
  RowBuffer rows(NamesOf(prepared));
  const int fieldCount = static_cast<int>(rows.FieldCount());
  for (; code == SQLITE_ROW; code = sqlite3_step(statement)) AppendRow(rows, statement, fieldCount);

  RequireDone(code, sql);
  Keep(std::move(prepared));
  return fieldCount == 0 ? nullptr : std::make_shared<BufferedRecordset>(std::move(rows));
}

void SqliteDatabase::Visit(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) {
  const DeadlineScope scope(*this, timeoutSeconds);
  PreparedStatement prepared = Ready(sql, {});
  sqlite3_stmt* const statement = prepared.handle.get();
  int code = sqlite3_step(statement);
  const int fieldCount = sqlite3_column_count(statement);
  std::vector<std::string_view> row(static_cast<std::size_t>(fieldCount));
  std::vector<NumberText> numbers(row.size());
  for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
    for (int i = 0; i < fieldCount; ++i) {
      const auto field = static_cast<std::size_t>(i);
      row[field] = TextOf(sqlite3_column_value(statement, i), numbers[field]);
    }
    visit(row);
  }
  RequireDone(code, sql);
  Keep(std::move(prepared));
}

void SqliteDatabase::RequireDone(int code, const std::string& sql) {
  if (code != SQLITE_DONE) Fail(code, sql);
}

void SqliteDatabase::Fail(int code, const std::string& sql) {
  if (std::exchange(cancelled_, false)) {
    LoseTransaction();
    if (handlerFailure_) std::rethrow_exception(std::exchange(handlerFailure_, nullptr));
    throw SqliteError(FailureCause::Cancelled, code, "The wait for the database was cancelled.", sql);
  }
  if (code == SQLITE_INTERRUPT) {
    throw SqliteError(code, std::string(sqlite3_errmsg(handle_)) + ": the statement exceeded its time-out.",
                      sql);
  }
  const SqliteError error = LastSqliteError(handle_, sql);
  if (layout_ != kAnyLayout && MayComeFromChangedFile(error)) {
    const std::string change = FileChange(handle_, path_, layout_);
    if (!change.empty()) throw StatementError(FailureCause::FileChanged, change, sql);
  }
  throw error;
}

PreparedStatement SqliteDatabase::Ready(const std::string& sql, Arguments arguments) {
  if (arguments.size() == 0) {
    PreparedStatement shared = ReadyShared(sql);
    if (shared.handle) return shared;
  }
  PreparedStatement prepared = TakeOrPrepare(sql, sql);
  sqlite3_stmt* const statement = prepared.handle.get();
  if (static_cast<std::size_t>(sqlite3_bind_parameter_count(statement)) != arguments.size()) {
    // SQLite would take NULL for a missing one.
    throw host::DatabaseError("The statement has a parameter without a value.", sql);
  }
  int parameter = 0;
  for (const std::string_view argument : arguments) {
    RequireBound(sqlite3_bind_text64(statement, ++parameter, argument.data(), argument.size(), SQLITE_STATIC,
                                     SQLITE_UTF8),
                 sql);
  }
  return prepared;
}

/// Without a handle when the text has to be run as it is.
PreparedStatement SqliteDatabase::ReadyShared(const std::string& sql) {
  PreparedStatement prepared = statements_.TakeFitting(sql, numbers_);
  if (!prepared.handle) {
    SharedText shared = ShareText(sql, numbers_);
    if (shared.places.empty()) return {};
    try {
      prepared.handle = Prepare(shared.text, sql);
      prepared.shared = std::move(shared);
    } catch (const SqliteError& error) {
      // Some statements need to see their numbers, such as one that names a partial index.
      if (error.Code() == SQLITE_ERROR) return {};
      throw;
    }
  }
  int parameter = 0;
  for (const std::int64_t number : numbers_) {
    RequireBound(sqlite3_bind_int64(prepared.handle.get(), ++parameter, number), sql);
  }
  return prepared;
}

PreparedStatement SqliteDatabase::TakeOrPrepare(const std::string& text, const std::string& sql) {
  PreparedStatement prepared = statements_.Take(text);
  if (prepared.handle) return prepared;
  prepared.handle = Prepare(text, sql);
  prepared.shared.text = text;
  return prepared;
}

void SqliteDatabase::Keep(PreparedStatement statement) {
  if (sqlite3_bind_parameter_count(statement.handle.get()) > 0) statements_.Keep(std::move(statement));
}

/// The failure of a text is that of the statement for which it stands.
StatementHandle SqliteDatabase::Prepare(const std::string& text, const std::string& sql) {
  if (sql.find('\0') != std::string::npos) {
    throw host::DatabaseError("A statement must not contain a NUL character.", sql);
  }
  sqlite3_stmt* statement = nullptr;
  const char* rest = nullptr;
  const int code = sqlite3_prepare_v2(handle_, text.c_str(), -1, &statement, &rest);
  if (code != SQLITE_OK) Fail(code, sql);
  StatementHandle prepared(statement);
  if (!prepared) throw host::DatabaseError("The statement is empty.", sql);
  RefuseFurtherStatement(rest, sql);
  return prepared;
}

void SqliteDatabase::RefuseFurtherStatement(const char* rest, const std::string& sql) const {
  // SQLite itself tells blanks, comments and a closing semicolon from a statement.
  while (*rest != '\0') {
    sqlite3_stmt* next = nullptr;
    const int code = sqlite3_prepare_v2(handle_, rest, -1, &next, &rest);
    const StatementHandle further(next);
    if (code != SQLITE_OK || further) {
      throw host::DatabaseError("Only one statement can be run at a time.", sql);
    }
  }
}

void SqliteDatabase::RequireBound(int code, const std::string& sql) {
  if (code != SQLITE_OK) Fail(code, sql);
}

void SqliteDatabase::RunInserts(std::vector<RowsInsert> inserts) {
  for (const RowsInsert& insert : inserts) {
    if (CanBeBound(insert)) {
      InsertBound(insert);
    } else {
      Run(insert.statement);
    }
  }
}

void SqliteDatabase::InsertBound(const RowsInsert& insert) {
  const DeadlineScope scope(*this, kNoTimeout);
  std::size_t row = 0;
  for (const std::size_t atOnce : {kRowsAtOnce, std::size_t{1}}) {
    if (insert.rows - row < atOnce) continue;
    PreparedStatement prepared = TakeOrPrepare(TextWithParameters(insert, atOnce), insert.statement);
    sqlite3_stmt* const statement = prepared.handle.get();
    for (; insert.rows - row >= atOnce; row += atOnce) {
      RequireBound(BindRows(statement, insert, row, atOnce), insert.statement);
      RequireDone(sqlite3_step(statement), insert.statement);
      sqlite3_reset(statement);
    }
    Keep(std::move(prepared));
  }
}

bool SqliteDatabase::GoesOn() {
  return Clock::now() < deadline_ && Ask(Wait::For::Answer, startedAt_);
}

bool SqliteDatabase::WaitForOthers(int attempt) {
  if (attempt == 0) waitingSince_ = Clock::now();
  if (Clock::now() >= std::min(waitingSince_ + kLongestWait, deadline_)) return false;
  if (!Ask(Wait::For::Lock, waitingSince_)) return false;
  sqlite3_sleep(std::min(attempt + 1, kLongestSleepMilliseconds));
  return true;
}

bool SqliteDatabase::Ask(Wait::For what, Clock::time_point since) {
  try {
    cancelled_ = !Waits().GoesOn(what, since);
  } catch (...) {  // must not go through SQLite
    cancelled_ = true;
    handlerFailure_ = std::current_exception();
  }
  return !cancelled_;
}

bool SqliteDatabase::FindColumn(const std::string& table, const std::string& column) {
  return !Run("SELECT 1 FROM pragma_table_info(?) WHERE name = ? COLLATE NOCASE", kNoTimeout, {table, column})
              ->EndOfFile();
}

std::string SqliteDatabase::CallFunction(const std::string& name, const std::string& argument) {
  const Variant result =
      Run("SELECT CAST(" + QuotedName(name) + "(?) AS TEXT)", kNoTimeout, {argument})->FieldAt(0);
  return result.IsNull() ? std::string() : std::get<std::string>(result.Value());
}

void SqliteDatabase::StartTransaction() {
  // At once for writing: two readers that both want to write later could only fail.
  Run("BEGIN IMMEDIATE");
  try {
    RequireSameFile();
  } catch (...) {
    Run("ROLLBACK");
    throw;
  }
}

/// What is written into a file without a name is lost without a word.
void SqliteDatabase::RequireSameFile() {
  if (layout_ == kAnyLayout) return;
  const auto row = Run("PRAGMA user_version", kNoTimeout, {});
  if (!FileHasMoved(handle_) && row->FieldAt(0) == Variant(layout_)) return;
  const std::string change = FileChange(handle_, path_, layout_);
  if (!change.empty()) throw StatementError(FailureCause::FileChanged, change, {});
}

void SqliteDatabase::CommitTransaction() {
  Run("COMMIT");
}

void SqliteDatabase::RollbackTransaction() {
  // After some failures, a full disk for one, SQLite rolls back by itself.
  if (TransactionIsSound()) Run("ROLLBACK");
}

bool SqliteDatabase::TransactionIsSound() const {
  return sqlite3_get_autocommit(handle_) == 0;
}

bool SqliteDatabase::ReadOnly() const {
  return sqlite3_db_readonly(handle_, "main") == 1;
}

const SchemaLayout& SqliteDatabase::Layout() const {
  static const SqliteLayout layout;
  return layout;
}

void SqliteDatabase::RegisterTextFunction(const std::string& name, TextFunction function) {
  if (!function || name.find('\0') != std::string::npos) {
    throw Error(ErrorNumber::InvalidArgument, "A stored function needs a name and something to call.");
  }
  auto owned = std::make_unique<TextFunction>(std::move(function));
  // SQLite destroys the function with the connection, and also when registering fails.
  const int code = sqlite3_create_function_v2(
      handle_, name.c_str(), 1, SQLITE_UTF8 | SQLITE_DIRECTONLY, owned.release(), CallTextFunction, nullptr,
      nullptr, [](void* doomed) { delete static_cast<TextFunction*>(doomed); });
  if (code != SQLITE_OK) throw LastSqliteError(handle_, {});
}

}  // namespace kiv::database
