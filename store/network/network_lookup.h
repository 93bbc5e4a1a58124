#pragma once

#include <string>
#include <vector>

#include "core/entities.h"
#include "host/database.h"

namespace kiv::store {

/// The stored network, asked for what studies name of it. Database failures are raised.
class NetworkLookup {
 public:
  explicit NetworkLookup(host::Database& database);

  /// Whether a network was ever imported; without one nothing can be looked up.
  bool KnowsNetwork() const { return known_; }
  /// What of these cells or ECPs, their antennas and carriers is not in the network, each in one sentence.
  std::vector<std::string> ProblemsOf(const EntityCollection& entities) const;

 private:
  class Group;

  host::Database& database_;
  bool known_;
};

}  // namespace kiv::store
