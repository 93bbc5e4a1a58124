#pragma once

#include <array>
#include <string_view>

#include "database/row_buffer.h"
#include "database/sqlite/statement_cache.h"

struct sqlite3_value;

namespace kiv::database {

/// The names of the columns of a statement that has made its first step: until then another program may have
/// changed the tables.
const FieldNames& NamesOf(PreparedStatement& statement);

/// Adds the row at which a statement stands. Here and below a value is asked, and not the statement, which
/// costs more; without SQLite's locking it needs no protection.
void AppendRow(RowBuffer& rows, sqlite3_stmt* statement, int fieldCount);

/// Room for the decimal digits of any integer and its sign.
using NumberText = std::array<char, 20>;

/// A value of a row as text, empty for NULL. An integer is written into `number`: SQLite's own way costs
/// more.
std::string_view TextOf(sqlite3_value* value, NumberText& number);

}  // namespace kiv::database
