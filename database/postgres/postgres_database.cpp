#include "database/postgres/postgres_database.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "database/postgres/parameterized_query.h"
#include "database/postgres/postgres_layout.h"
#include "database/postgres/shown_address.h"
#include "database/row_buffer.h"
#include "database/server_address.h"

namespace kiv::database {

namespace {

constexpr int kTimeoutUnknown = -1;
constexpr int kLongestTimeoutSeconds = 2'000'000;  // the server counts milliseconds in 31 bits

/// How a statement text is read, and how long it waits for a lock.
constexpr const char* kSessionSettings =
    "SET standard_conforming_strings = on; SET backslash_quote = safe_encoding; SET lock_timeout = '5s'; "
    "SET DateStyle = ISO; SET extra_float_digits = 1";

void RequireLibrary() {
  try {
    Pq();
  } catch (const Error& error) {
    throw OpenError(OpenProblem::NoClientLibrary, kHiddenAddress, error.what());
  }
}

/// How the text of a column is read; numbers by the identifiers of the types, which never change.
enum class ColumnType { Integer, Real, Boolean, Text };

ColumnType TypeOf(Oid type) {
  switch (type) {
    case 20:    // int8
    case 21:    // int2
    case 23:    // int4
    case 26:    // oid
    case 1700:  // numeric, when it is whole
      return ColumnType::Integer;
    case 700:  // float4
    case 701:  // float8
      return ColumnType::Real;
    case 16: return ColumnType::Boolean;
    default: return ColumnType::Text;
  }
}

template <class Number>
bool Parse(std::string_view text, Number& number) {
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
  return problem == std::errc() && end == text.data() + text.size();
}

void AppendCell(RowBuffer& rows, ColumnType type, std::string_view text) {
  std::int64_t integer = 0;
  double real = 0;
  if (type == ColumnType::Boolean) {
    rows.AppendInteger(text == "t" ? 1 : 0);
  } else if (type == ColumnType::Integer && Parse(text, integer)) {
    rows.AppendInteger(integer);
  } else if (type != ColumnType::Text && Parse(text, real)) {
    rows.AppendReal(real);
  } else {
    rows.AppendText(text);
  }
}

std::string_view TextAt(const PGresult* result, int row, int field) {
  return {Pq().PQgetvalue(result, row, field),
          static_cast<std::size_t>(Pq().PQgetlength(result, row, field))};
}

std::shared_ptr<host::Recordset> RowsOf(const PGresult* result) {
  const int fieldCount = Pq().PQnfields(result);
  std::vector<std::string> names;
  std::vector<ColumnType> types;
  for (int field = 0; field < fieldCount; ++field) {
    names.emplace_back(Pq().PQfname(result, field));
    types.push_back(TypeOf(Pq().PQftype(result, field)));
  }
  RowBuffer rows(std::move(names));
  const int rowCount = Pq().PQntuples(result);
  for (int row = 0; row < rowCount; ++row) {
    for (int field = 0; field < fieldCount; ++field) {
      if (Pq().PQgetisnull(result, row, field) != 0) {
        rows.AppendNull();
        continue;
      }
      AppendCell(rows, types[static_cast<std::size_t>(field)], TextAt(result, row, field));
    }
  }
  return std::make_shared<BufferedRecordset>(std::move(rows));
}

bool IsCopy(const PGresult* result) {
  const ExecStatusType status = Pq().PQresultStatus(result);
  return status == PGRES_COPY_IN || status == PGRES_COPY_OUT || status == PGRES_COPY_BOTH;
}

bool Succeeded(const PGresult* result) {
  const ExecStatusType status = Pq().PQresultStatus(result);
  return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK;
}

}  // namespace

std::shared_ptr<PostgresDatabase> PostgresDatabase::Open(const std::string& url, WaitHandler waitHandler) {
  RequireLibrary();
  std::shared_ptr<PostgresDatabase> database(new PostgresDatabase(ShownAddress(url), url));
  database->SetWaitHandler(std::move(waitHandler));
  try {
    database->Connect({});
  } catch (const PostgresError& error) {
    throw AsOpenError(error, database->Name());
  }
  return database;
}

void PostgresDatabase::Connect(const std::string& sql) {
  link_.Connect(sql);
  link_.Expect(link_.ConnectLimit(), sql, Wait::For::Connection);
  Pq().PQsendQuery(link_.Get(), kSessionSettings);
  const ResultHandle result = LastResult();
  if (Pq().PQresultStatus(result.get()) != PGRES_COMMAND_OK) {
    throw PostgresError(link_.Get(), result.get(), kSessionSettings);
  }
  timeoutSeconds_ = kNoTimeout;
}

void PostgresDatabase::RequireConnection(const std::string& sql) {
  if (!InTransaction() && !link_.Alive()) Connect(sql);
}

ResultHandle PostgresDatabase::Answered(const std::string& sql, int timeoutSeconds, Arguments arguments) {
  const auto hasNul = [](std::string_view text) { return text.find('\0') != std::string_view::npos; };
  if (hasNul(sql) || std::ranges::any_of(arguments, hasNul)) {
    throw host::DatabaseError("A statement must not contain a NUL character.", sql);
  }
  RequireConnection(sql);
  ResultHandle result = Ask(sql, std::clamp(timeoutSeconds, 0, kLongestTimeoutSeconds), arguments);
  switch (Pq().PQresultStatus(result.get())) {
    case PGRES_COMMAND_OK:
    case PGRES_TUPLES_OK: return result;
    case PGRES_EMPTY_QUERY: throw host::DatabaseError("The statement is empty.", sql);
    default: Fail(result.get(), sql);
  }
}

void PostgresDatabase::Fail(const PGresult* result, const std::string& sql) {
  timeoutSeconds_ = kTimeoutUnknown;  // the failure took a new one back
  if (!IsCopy(result)) throw PostgresError(link_.Get(), result, sql);
  // The server waits for rows, or sends them; nothing else would be understood before their end.
  Connect(sql);
  throw host::DatabaseError("A statement must not COPY rows from or to its client.", sql);
}

std::shared_ptr<host::Recordset> PostgresDatabase::Run(const std::string& sql, int timeoutSeconds,
                                                       Arguments arguments) {
  const ResultHandle result = Answered(sql, timeoutSeconds, arguments);
  return Pq().PQresultStatus(result.get()) == PGRES_TUPLES_OK ? RowsOf(result.get()) : nullptr;
}

void PostgresDatabase::Visit(const std::string& sql, int timeoutSeconds, const RowVisitor& visit) {
  const ResultHandle result = Answered(sql, timeoutSeconds, {});
  std::vector<std::string_view> row(static_cast<std::size_t>(Pq().PQnfields(result.get())));
  const int rowCount = Pq().PQntuples(result.get());
  for (int number = 0; number < rowCount; ++number) {
    int field = 0;
    for (std::string_view& text : row) text = TextAt(result.get(), number, field++);
    visit(row);
  }
}

void PostgresDatabase::RunAll(std::span<const std::string> statements) {
  std::vector<std::string> all(statements.begin(), statements.end());
  if (timeoutSeconds_ != kNoTimeout) all.insert(all.begin(), TimeoutSetting(kNoTimeout));
  const Answer answer = AskTogether(all, {});
  if (Pq().PQresultStatus(answer.result.get()) == PGRES_COMMAND_OK) return;
  Fail(answer.result.get(), all[answer.statement]);
}

std::string PostgresDatabase::TimeoutSetting(int timeoutSeconds) {
  timeoutSeconds_ = timeoutSeconds;
  return "SET statement_timeout = " +
         (timeoutSeconds == kNoTimeout ? "DEFAULT" : "'" + std::to_string(timeoutSeconds) + "s'");
}

ResultHandle PostgresDatabase::Ask(const std::string& sql, int timeoutSeconds, Arguments arguments) {
  const std::vector<std::string> texts(arguments.begin(), arguments.end());
  std::vector<const char*> values;
  values.reserve(texts.size());
  for (const std::string& text : texts) values.push_back(text.c_str());
  if (timeoutSeconds != timeoutSeconds_) {
    return AskTogether(std::array{TimeoutSetting(timeoutSeconds), sql}, values).result;
  }
  link_.Expect(AnswerLimit(timeoutSeconds), sql);
  // The simple protocol is faster, but it would run a second statement in the text as well.
  if (values.empty() && sql.find(';') == std::string::npos) {
    Pq().PQsendQuery(link_.Get(), sql.c_str());
  } else {
    Pq().PQsendQueryParams(link_.Get(), sql.c_str(), static_cast<int>(values.size()), nullptr, values.data(),
                           nullptr, nullptr, 0);
  }
  return LastResult();
}

ResultHandle PostgresDatabase::LastResult() {
  ResultHandle last;
  while (ResultHandle next = link_.Next()) {
    if (IsCopy(next.get())) return next;  // would come again and again
    if (!last || Succeeded(last.get())) last = std::move(next);
  }
  return last;
}

std::chrono::seconds PostgresDatabase::AnswerLimit(int timeoutSeconds) const {
  constexpr std::chrono::seconds kWayOfTheAnswer{1};
  return timeoutSeconds == kNoTimeout ? StatementLimit()
                                      : std::chrono::seconds(timeoutSeconds) + kWayOfTheAnswer;
}

PostgresDatabase::Answer PostgresDatabase::AskTogether(std::span<const std::string> statements,
                                                       std::span<const char* const> lastValues) {
  PGconn* const connection = link_.Get();
  link_.Expect(AnswerLimit(timeoutSeconds_), statements.back());
  bool sent = Pq().PQenterPipelineMode(connection) == 1;
  for (const std::string& sql : statements) {
    const bool last = &sql == &statements.back();
    const int count = last ? static_cast<int>(lastValues.size()) : 0;
    sent = sent && Pq().PQsendQueryParams(connection, sql.c_str(), count, nullptr, lastValues.data(), nullptr,
                                          nullptr, 0) == 1;
  }
  sent = sent && Pq().PQpipelineSync(connection) == 1;
  Answer answer;
  if (sent) answer = Collect(statements.size());
  Pq().PQexitPipelineMode(connection);
  return answer;
}

PostgresDatabase::Answer PostgresDatabase::Collect(std::size_t statementCount) {
  PGconn* const connection = link_.Get();
  Answer answer;
  std::size_t answered = 0;
  bool failed = false;
  // A null ends the answers to each statement, or all when the connection is lost.
  for (;;) {
    ResultHandle next = link_.Next();
    if (!next && Pq().PQstatus(connection) == CONNECTION_OK) continue;
    if (!next) break;
    if (IsCopy(next.get())) return {std::move(next), answered};  // would come again and again
    if (Pq().PQresultStatus(next.get()) == PGRES_PIPELINE_SYNC) return answer;
    // All that follows a failure is answered as well: with "aborted", or with the end of the session.
    if (failed) continue;
    failed = !Succeeded(next.get());
    answer = {std::move(next), std::min(answered++, statementCount - 1)};  // the end may fail as well
  }
  if (!failed) answer = {nullptr, std::min(answered, statementCount - 1)};
  return answer;
}

bool PostgresDatabase::FindColumn(const std::string& table, const std::string& column) {
  return !Run("SELECT 1 FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid WHERE c.relname = "
              "lower($1)::name AND pg_table_is_visible(c.oid) AND lower(a.attname) = lower($2) AND a.attnum "
              "> 0 AND NOT a.attisdropped",
              TimeoutAsItIs(), {table, column})
              ->EndOfFile();
}

std::string PostgresDatabase::CallFunction(const std::string& name, const std::string& argument) {
  const Variant result = Run(FunctionCall(name), TimeoutAsItIs(), {argument})->FieldAt(0);
  return result.IsNull() ? std::string() : std::get<std::string>(result.Value());
}

void PostgresDatabase::SendAhead(std::span<const host::Announcement> questions) {
  if (ahead_.Empty() && (InTransaction() ? !TransactionIsSound() : !link_.Alive())) return;
  const bool otherTimeout = timeoutSeconds_ != host::kQueryTimeoutSeconds;
  ahead_.Send(questions, otherTimeout ? TimeoutSetting(host::kQueryTimeoutSeconds) : "",
              AnswerLimit(host::kQueryTimeoutSeconds));
}

std::optional<std::shared_ptr<host::Recordset>> PostgresDatabase::TakeAhead(
    const host::Announcement& question) {
  if (ahead_.Empty()) return std::nullopt;
  const auto result = ahead_.Take(question, InTransaction() ? ReadAhead::Age::Any : ReadAhead::Age::Fresh);
  if (!result) return std::nullopt;
  if (Pq().PQresultStatus(result->get()) == PGRES_TUPLES_OK) return RowsOf(result->get());
  // Outside a transaction a question that failed, or one before it that is not asked, leaves nothing behind.
  if (InTransaction()) Fail(result->get(), question.text);
  timeoutSeconds_ = kTimeoutUnknown;
  return std::nullopt;
}

void PostgresDatabase::Control(const char* sql) {
  link_.Expect(StatementLimit(), sql);
  Pq().PQsendQuery(link_.Get(), sql);
  const ResultHandle result = LastResult();
  if (Pq().PQresultStatus(result.get()) == PGRES_COMMAND_OK) return;
  throw PostgresError(link_.Get(), result.get(), sql);
}

void PostgresDatabase::Start(const char* sql) {
  if (link_.Alive()) {
    try {
      return Control(sql);
    } catch (const PostgresError& error) {
      // Nothing was done yet, so that nothing can be done twice.
      if (error.Cause() != FailureCause::ConnectionLost) throw;
    }
  }
  Connect(sql);
  Control(sql);
}

void PostgresDatabase::CommitTransaction() {
  if (!link_.Alive()) throw PostgresError(link_.Get(), nullptr, "COMMIT");
  std::string reason;
  try {
    return Control("COMMIT");
  } catch (const std::exception& error) {  // the wait handler's as well
    if (link_.Alive()) throw;              // the server has answered: nothing is stored
    reason = error.what();
  }
  link_.Drop();
  throw PostgresError(FailureCause::CommitUnknown, reason, "COMMIT");
}

void PostgresDatabase::RollbackTransaction() {
  timeoutSeconds_ = kTimeoutUnknown;
  try {
    ahead_.Drop();
    if (Pq().PQtransactionStatus(link_.Get()) == PQTRANS_IDLE || !link_.Alive()) return;
    Control("ROLLBACK");
  } catch (...) {
    // Without its client the server rolls back by itself.
    if (link_.Alive()) throw;
  }
}

bool PostgresDatabase::TransactionIsSound() const {
  // While questions are on their way, what comes back for one tells.
  return !ahead_.Empty() ? InTransaction() : Pq().PQtransactionStatus(link_.Get()) == PQTRANS_INTRANS;
}

bool PostgresDatabase::ReadOnly() const {
  const auto on = [this](const char* parameter) {
    const char* value = Pq().PQparameterStatus(link_.Get(), parameter);
    return value && std::strcmp(value, "on") == 0;
  };
  return on("in_hot_standby") || on("default_transaction_read_only");
}

const SchemaLayout& PostgresDatabase::Layout() const {
  static const PostgresLayout layout;
  return layout;
}

}  // namespace kiv::database
