#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/row_buffer.h"
#include "database/shared_text.h"

struct sqlite3_stmt;

namespace kiv::database {

struct StatementDeleter {
  void operator()(sqlite3_stmt* statement) const;
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, StatementDeleter>;

/// A statement ready to run, with the names of its columns once they are known.
struct PreparedStatement {
  SharedText shared;  ///< without places when its parameters do not stand for numbers
  StatementHandle handle;
  FieldNames fieldNames = nullptr;
  int timesPrepared = 0;  ///< anew by SQLite, when the names were read
};

/// Statements with parameters that have been run and wait for other values: those that ran last, so that
/// there are never many.
class StatementCache {
 public:
  /// The statement of this text; without a handle when none waits. It is the caller's until it is kept again,
  /// so that what a statement calls cannot run the same one in the middle of it.
  PreparedStatement Take(std::string_view text);
  /// The same for a statement with other numbers, which are taken from it.
  PreparedStatement TakeFitting(std::string_view sql, std::vector<std::int64_t>& numbers);
  /// Takes back a statement that has run to its end.
  void Keep(PreparedStatement statement);
  void Clear() { waiting_.clear(); }

 private:
  template <class Wanted>
  PreparedStatement TakeLatest(const Wanted& wanted);

  std::vector<PreparedStatement> waiting_;  ///< the one that ran last at the end
};

}  // namespace kiv::database
