#pragma once

#include <cstdint>

#include "database/schema_layout.h"

namespace kiv::database {

/// Marks an SQLite file as a study database; the letters KIVS.
inline constexpr std::int32_t kApplicationId = 0x4B495653;

/// The version stands in the head of the file.
class SqliteLayout : public SchemaLayout {
 public:
  std::string_view Engine() const override;
  std::span<const SchemaWord> Words() const override;
  int Version(Connection& connection) const override;
  void SetVersion(Connection& connection, int version) const override;
  bool IsTaken(Connection& connection) const override;
  /// Nothing to do: SQLite has one writing transaction at a time.
  void LockOutOthers(Connection&) const override {}
};

}  // namespace kiv::database
