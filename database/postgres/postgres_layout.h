#pragma once

#include "database/schema_layout.h"

namespace kiv::database {

/// The version stands in a table of its own. The study tables are in the first schema of the search path.
class PostgresLayout : public SchemaLayout {
 public:
  std::string_view Engine() const override;
  std::span<const SchemaWord> Words() const override;
  int Version(Connection& connection) const override;
  void SetVersion(Connection& connection, int version) const override;
  bool IsTaken(Connection& connection) const override;
  void LockOutOthers(Connection& connection) const override;
};

}  // namespace kiv::database
