#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "database/connection.h"
#include "host/documents.h"
#include "store/change.h"
#include "store/store_error.h"

namespace kiv::store {

/// The scenarios of a study database, each with a name that no other has, whatever its letter case.
class Scenarios {
 public:
  Scenarios(database::Connection& connection, const Changes& changes)
      : connection_(connection), changes_(changes) {}

  /// All of them, by name.
  std::vector<host::Document> List() const;
  /// The scenario of a name, whose letter case does not matter.
  std::optional<std::int32_t> Find(const std::string& name) const;
  /// Empty when there is none of that number.
  std::string NameOf(std::int32_t id) const;

  /// Identifier of the new scenario. Raises StoreError for an empty name or one that exists already.
  std::int32_t Add(const std::string& name, const std::string& user = {});
  /// Within the transaction of a change.
  std::int32_t FindOrAdd(const std::string& name);
  /// Raises StoreError as Add does.
  void Rename(std::int32_t id, const std::string& name, const std::string& user = {});
  /// Raises StoreError while studies belong to the scenario.
  void Remove(std::int32_t id, const std::string& user = {});

 private:
  std::string CheckedName(const std::string& name, std::int32_t ownId) const;
  void ExecuteUnlessForbidden(const std::string& sql, const StoreError& refusal);
  /// Nothing when there is one of that name.
  std::optional<std::int32_t> Insert(const std::string& name);

  database::Connection& connection_;
  const Changes& changes_;
};

/// The name of a scenario in a list of them; empty when it is not there.
std::string NameOf(std::span<const host::Document> scenarios, std::int32_t id);

}  // namespace kiv::store
