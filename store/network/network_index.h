#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kiv::store {

/// The numbers on the path to a system, an ECP or a cell; what is below it is 0.
struct EntityPath {
  std::int32_t system = 0;
  std::int32_t ecp = 0;
  std::int32_t cell = 0;

  EntityPath Parent() const;
  /// Such as `cell 1-2-37`.
  std::string Text() const;
  friend bool operator==(const EntityPath&, const EntityPath&) = default;
};

/// The systems, ECPs and cells of a configuration that is being checked. What asks for a problem gets a
/// reason for the user, or an empty text.
class EntityIndex {
 public:
  /// Of two entities with one path, the first counts. Instance 0 is an unknown one, which any parent fits.
  void Add(const EntityPath& path, std::int32_t instance);

  std::string ProblemWithPlace(const EntityPath& path) const;
  /// Whether a column names the instance of the entity that a path belongs to.
  std::string ProblemWithParent(const EntityPath& path, std::string_view column, std::int32_t instance) const;
  /// The same for a path written as numbers with hyphens between, which must exist itself.
  std::string ProblemWithKeyAndParent(std::string_view fullKey, std::string_view column,
                                      std::int32_t instance) const;
  std::string ProblemWithEcp(std::string_view column, std::int32_t instance) const;

 private:
  struct Hash {
    std::size_t operator()(const EntityPath& path) const;
  };

  std::unordered_map<EntityPath, std::int32_t, Hash> instances_;
  std::unordered_map<std::int32_t, EntityPath> paths_;
};

}  // namespace kiv::store
