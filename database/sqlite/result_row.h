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

/// Adds the row at which a statement stands.
void AppendRow(RowBuffer& rows, sqlite3_stmt* statement, int fieldCount);

/// Room for the decimal digits of any integer and its sign.
using NumberText = std::array<char, 20>;

/// A value of a row as text, empty for NULL. An integer is written into `number`: SQLite's own way costs
/// more. So does asking the statement again and again; without SQLite's locking a value needs no protection.
std::string_view TextOf(sqlite3_value* value, NumberText& number);

}  // namespace kiv::database
