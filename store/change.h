#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "database/connection.h"
#include "database/statement_error.h"
#include "database/transaction.h"
#include "store/store_error.h"

namespace kiv::store {

/// What is changed as one, who does it and when.
struct ChangeNote {
  std::string_view event;   ///< such as `import`
  std::string user;         ///< login name
  std::string time;         ///< UTC, such as 2026-03-09T13:05:00Z
  std::size_t studies = 0;  ///< how many it concerns
};

/// Whether a change was stored could not be found out: its answer was lost, and the database cannot be asked.
class OutcomeUnknown : public StoreError {
 public:
  explicit OutcomeUnknown(std::string token);

  /// Tells Changes::IsStored which change; empty when the database keeps no changes.
  const std::string& Token() const { return token_; }

 private:
  std::string token_;
};

/// The changes that a database keeps a record of.
class Changes {
 public:
  explicit Changes(database::Connection& connection) : connection_(connection) {}

  /// Whether the database has a place for it. One that keeps an older layout has none.
  bool AreKept() const;
  /// Whether the change of this token is stored. A connection that still stores it is waited for, and when it
  /// is not stored now, it will not be later.
  bool IsStored(const std::string& token) const;

 private:
  friend class Change;

  bool Has(const std::string& token) const;

  database::Connection& connection_;
  mutable std::optional<bool> kept_;
};

/// A change of the database in a transaction of its own, taken back at the end of its scope unless it was
/// committed. A token that no other change has is stored with it; when the answer to the commit is lost, it
/// tells what became of the change, so that nothing is stored twice or told as lost when it is not.
class Change {
 public:
  Change(const Changes& changes, const ChangeNote& note);

  /// Empty when the database keeps no changes.
  const std::string& Token() const { return token_; }
  /// Makes the change lasting; on return it is stored. Raises OutcomeUnknown, or what kept it from being
  /// stored.
  void Commit();

 private:
  bool IsStoredAfter(database::FailureCause cause);

  const Changes& changes_;
  std::string token_;
  std::optional<database::Transaction> transaction_;
};

}  // namespace kiv::store
