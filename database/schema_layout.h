#pragma once

#include <span>
#include <string_view>

#include "database/connection.h"

namespace kiv::database {

/// The study tables as one kind of database has them, and where it keeps how far it got.
class SchemaLayout {
 public:
  virtual ~SchemaLayout() = default;

  /// The scripts, first step first.
  virtual std::span<const std::string_view> Steps() const = 0;
  /// The number of the last step that was run; 0 when the database has no study tables yet.
  virtual int Version(Connection& connection) const = 0;
  virtual void SetVersion(Connection& connection, int version) const = 0;
  /// Whether a database without study tables has something of another program in it.
  virtual bool IsTaken(Connection& connection) const = 0;
  /// Inside a transaction: keeps every other program from running steps until it ends.
  virtual void LockOutOthers(Connection& connection) const = 0;
};

}  // namespace kiv::database
