#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/connection.h"
#include "host/drag_source.h"
#include "store/network/network_index.h"

namespace kiv::store {

enum class EntityKind : std::uint8_t { System, Ecp, Cell };

/// The kind as a user reads it, such as `ECP`.
std::string_view KindText(EntityKind kind);

/// The systems, ECPs and cells of the stored network in the order of their numbers: each system is followed
/// by its ECPs, and each ECP by its cells. Packed, because there may be hundreds of thousands.
class NetworkEntities {
 public:
  using Number = std::uint32_t;

  static NetworkEntities Load(database::Connection& connection);

  /// Adds an entity behind all others. One whose system or ECP is not there is left out.
  void Add(const EntityPath& path, std::int32_t instance, std::string_view name, std::string_view technology);

  Number Count() const { return static_cast<Number>(rows_.size()); }
  EntityKind Kind(Number entity) const;
  const EntityPath& Path(Number entity) const { return rows_[entity].path; }
  std::int32_t Instance(Number entity) const { return rows_[entity].instance; }
  /// The number on the entity's own level.
  std::int32_t OwnNumber(Number entity) const;
  std::string_view Name(Number entity) const { return Slice(names_, entity, &Row::name); }
  std::string_view Technology(Number entity) const { return technologies_[rows_[entity].technology]; }
  /// Name and technology in lower case.
  std::string_view SearchText(Number entity) const { return Slice(searchTexts_, entity, &Row::searchText); }
  /// As it is dragged.
  host::DraggedNode Node(Number entity) const;

 private:
  struct Row {
    EntityPath path;
    std::int32_t instance;
    std::uint32_t name;        ///< where it begins in names_
    std::uint32_t searchText;  ///< where it begins in searchTexts_
    std::uint32_t technology;
  };

  std::string_view Slice(const std::string& texts, Number entity, std::uint32_t Row::*start) const {
    const std::size_t begin = rows_[entity].*start;
    const std::size_t end = entity + 1 < rows_.size() ? rows_[entity + 1].*start : texts.size();
    return std::string_view(texts).substr(begin, end - begin);
  }
  std::uint32_t TechnologyNumber(std::string_view technology);

  std::vector<Row> rows_;
  std::string names_;
  std::string searchTexts_;
  std::vector<std::string> technologies_;
  EntityPath system_;  ///< the last one added
  EntityPath ecp_;
};

/// What the user looks for: words of names and technologies, numbers such as 37, paths such as 1-2 or 1-2-37.
/// An entity is found when each of them fits itself or what it belongs to.
class EntitySearch {
 public:
  explicit EntitySearch(const std::string& text);

  bool LooksForAll() const { return words_.empty(); }
  /// The entities found and those they belong to, in order.
  std::vector<NetworkEntities::Number> Find(const NetworkEntities& entities) const;

 private:
  struct Word {
    std::string text;
    std::vector<std::int32_t> numbers;  ///< of a path or a single number
  };
  using Fits = std::uint64_t;  ///< a bit for each word

  bool WordFits(const Word& word, const NetworkEntities& entities, NetworkEntities::Number entity) const;
  Fits FitsOf(const NetworkEntities& entities, NetworkEntities::Number entity) const;

  std::vector<Word> words_;
};

}  // namespace kiv::store
