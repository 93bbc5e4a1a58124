#include "database/sqlite/statement_cache.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace kiv::database {

namespace {

/// More than loading and saving a study of any kind has.
constexpr std::size_t kMostKept = 32;

}  // namespace

void StatementDeleter::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

template <class Wanted>
PreparedStatement StatementCache::TakeLatest(const Wanted& wanted) {
  const auto found = std::find_if(waiting_.rbegin(), waiting_.rend(), wanted);
  if (found == waiting_.rend()) return {};
  PreparedStatement statement = std::move(*found);
  waiting_.erase(std::next(found).base());
  return statement;
}

PreparedStatement StatementCache::Take(std::string_view text) {
  return TakeLatest([text](const PreparedStatement& kept) { return kept.shared.text == text; });
}

PreparedStatement StatementCache::TakeFitting(std::string_view sql, std::vector<std::int64_t>& numbers) {
  return TakeLatest([&](const PreparedStatement& kept) {
    return !kept.shared.places.empty() && kept.shared.Fits(sql, numbers);
  });
}

void StatementCache::Keep(PreparedStatement statement) {
  sqlite3_reset(statement.handle.get());
  sqlite3_clear_bindings(statement.handle.get());  // texts that the caller owns
  if (waiting_.size() == kMostKept) waiting_.erase(waiting_.begin());
  waiting_.push_back(std::move(statement));
}

}  // namespace kiv::database
