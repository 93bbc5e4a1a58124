#pragma once

struct sqlite3;
struct sqlite3_stmt;

/// The sqlite3 library used directly, for baselines. A failure ends the program.
namespace kiv::bench {

/// Opens a file with the settings that the program's own connections have.
sqlite3* OpenPlain(const char* file);

void Run(sqlite3* database, const char* sql);

sqlite3_stmt* Prepare(sqlite3* database, const char* sql);
/// Moves to the next row; at the end the statement is gone and the answer false.
bool NextRow(sqlite3_stmt* statement);

template <class TakeRow>
void Query(sqlite3* database, const char* sql, const TakeRow& takeRow) {
  sqlite3_stmt* statement = Prepare(database, sql);
  while (NextRow(statement)) takeRow(statement);
}

}  // namespace kiv::bench
