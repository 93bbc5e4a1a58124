#include "plain_sqlite.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

namespace kiv::bench {

namespace {

void Check(int code, sqlite3* database) {
  if (code == SQLITE_OK) return;
  std::fprintf(stderr, "%s\n", sqlite3_errmsg(database));
  std::exit(1);
}

}  // namespace

sqlite3* OpenPlain(const char* file) {
  sqlite3* database = nullptr;
  Check(sqlite3_open(file, &database), database);
  Run(database, "PRAGMA foreign_keys = ON; PRAGMA synchronous = EXTRA");
  return database;
}

void Run(sqlite3* database, const char* sql) {
  Check(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), database);
}

sqlite3_stmt* Prepare(sqlite3* database, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr), database);
  return statement;
}

bool NextRow(sqlite3_stmt* statement) {
  const int code = sqlite3_step(statement);
  if (code == SQLITE_ROW) return true;
  Check(code == SQLITE_DONE ? SQLITE_OK : code, sqlite3_db_handle(statement));
  sqlite3_finalize(statement);
  return false;
}

}  // namespace kiv::bench
