#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "database/connection.h"
#include "host/documents.h"

namespace kiv::store {

/// The scenarios of a study database, each with a name that no other has, whatever its letter case.
class Scenarios {
 public:
  explicit Scenarios(database::Connection& connection) : connection_(connection) {}

  /// All of them, by name.
  std::vector<host::Document> List() const;
  /// The scenario of a name, whose letter case does not matter.
  std::optional<std::int32_t> Find(const std::string& name) const;
  /// Empty when there is none of that number.
  std::string NameOf(std::int32_t id) const;

  /// Identifier of the new scenario. Raises StoreError for an empty name or one that exists already.
  std::int32_t Add(const std::string& name);
  std::int32_t FindOrAdd(const std::string& name);
  /// Raises StoreError as Add does.
  void Rename(std::int32_t id, const std::string& name);
  /// Raises StoreError while studies belong to the scenario.
  void Remove(std::int32_t id);

 private:
  std::string CheckedName(const std::string& name, std::int32_t ownId) const;

  database::Connection& connection_;
};

/// The name of a scenario in a list of them; empty when it is not there.
std::string NameOf(std::span<const host::Document> scenarios, std::int32_t id);

}  // namespace kiv::store
