#pragma once

#include <span>
#include <string_view>

#include "database/connection.h"

namespace kiv::database {

/// A word of the scripts, such as `@WITHOUT_ROWID@`, and what stands there for one engine.
struct SchemaWord {
  std::string_view word;
  std::string_view meaning;
};

/// The study tables as one kind of database has them, and where it keeps how far it got.
class SchemaLayout {
 public:
  virtual ~SchemaLayout() = default;

  /// The engine, as the scripts call it.
  virtual std::string_view Engine() const = 0;
  /// What the words of the scripts mean to it.
  virtual std::span<const SchemaWord> Words() const = 0;
  /// The number of the last step that was run; 0 when the database has no study tables yet.
  virtual int Version(Connection& connection) const = 0;
  virtual void SetVersion(Connection& connection, int version) const = 0;
  /// Whether a database without study tables has something of another program in it.
  virtual bool IsTaken(Connection& connection) const = 0;
  /// Inside a transaction: keeps every other program from running steps until it ends.
  virtual void LockOutOthers(Connection& connection) const = 0;
};

}  // namespace kiv::database
