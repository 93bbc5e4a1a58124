#pragma once

#include <cstddef>
#include <string>

#include "database/insert_batch.h"

struct sqlite3_stmt;

namespace kiv::database {

/// Whether the values of an insert can be bound. What a number with a fraction means is for SQLite to say,
/// and too many columns would be more parameters than it takes.
bool CanBeBound(const RowsInsert& insert);

/// How many rows one statement with parameters inserts, as long as there are so many.
inline constexpr std::size_t kRowsAtOnce = 50;

/// An insert of so many rows with a parameter for each value.
std::string TextWithParameters(const RowsInsert& insert, std::size_t rows);

/// Binds the values of some rows; returns SQLite's result code. The texts stay those of the insert.
int BindRows(sqlite3_stmt* statement, const RowsInsert& insert, std::size_t first, std::size_t count);

}  // namespace kiv::database
