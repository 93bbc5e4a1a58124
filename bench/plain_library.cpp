#include "plain_library.h"

#include <libpq-fe.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace kiv::bench {

namespace {

void Require(bool succeeded, const std::string& sql, const char* text) {
  if (succeeded) return;
  std::fprintf(stderr, "%s: %s\n", text, sql.c_str());
  std::exit(1);
}

/// Where fetched values end up.
struct Values {
  std::vector<long long> numbers;
  std::vector<std::string> texts;
};

class Sqlite final : public PlainLibrary {
 public:
  explicit Sqlite(const std::string& file) {
    Require(sqlite3_open(file.c_str(), &handle_) == SQLITE_OK, file, "not opened");
    Run("PRAGMA foreign_keys = ON");
    Run("PRAGMA synchronous = EXTRA");
  }
  ~Sqlite() override { sqlite3_close(handle_); }

  void Run(const std::string& sql) override {
    const auto ignoreRow = [](void*, int, char**, char**) { return 0; };
    Require(sqlite3_exec(handle_, sql.c_str(), ignoreRow, nullptr, nullptr) == SQLITE_OK, sql,
            sqlite3_errmsg(handle_));
  }

  int Fetch(const std::string& sql) override {
    sqlite3_stmt* statement = nullptr;
    Require(sqlite3_prepare_v2(handle_, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK, sql,
            sqlite3_errmsg(handle_));
    const int columns = sqlite3_column_count(statement);
    Values values;
    int rows = 0;
    for (; sqlite3_step(statement) == SQLITE_ROW; ++rows) {
      for (int column = 0; column < columns; ++column) {
        switch (sqlite3_column_type(statement, column)) {
          case SQLITE_INTEGER: values.numbers.push_back(sqlite3_column_int64(statement, column)); break;
          case SQLITE_TEXT:
            values.texts.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
            break;
          default: break;
        }
      }
    }
    sqlite3_finalize(statement);
    return rows;
  }

 private:
  sqlite3* handle_ = nullptr;
};

class Postgres final : public PlainLibrary {
 public:
  explicit Postgres(const std::string& address) : connection_(PQconnectdb(address.c_str())) {}
  ~Postgres() override { PQfinish(connection_); }

  void Run(const std::string& sql) override { PQclear(Answer(sql)); }

  int Fetch(const std::string& sql) override {
    constexpr Oid kInteger = 23;
    PGresult* const result = Answer(sql);
    const int rows = PQntuples(result);
    Values values;
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < PQnfields(result); ++column) {
        if (PQgetisnull(result, row, column) != 0) continue;
        const char* text = PQgetvalue(result, row, column);
        if (PQftype(result, column) == kInteger) {
          values.numbers.push_back(std::atoll(text));
        } else {
          values.texts.emplace_back(text);
        }
      }
    }
    PQclear(result);
    return rows;
  }

 private:
  PGresult* Answer(const std::string& sql) {
    PGresult* const result = PQexec(connection_, sql.c_str());
    const ExecStatusType status = PQresultStatus(result);
    Require(status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK, sql, PQerrorMessage(connection_));
    return result;
  }

  PGconn* connection_;
};

}  // namespace

void PlainLibrary::RunInTransaction(const std::vector<std::string>& texts) {
  Run("BEGIN");
  for (const std::string& sql : texts) Run(sql);
  Run("COMMIT");
}

std::unique_ptr<PlainLibrary> PlainSqlite(const std::string& file) {
  return std::make_unique<Sqlite>(file);
}

std::unique_ptr<PlainLibrary> PlainPostgres(const std::string& address) {
  return std::make_unique<Postgres>(address);
}

}  // namespace kiv::bench
