#include "store/network/network_entities.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "core/conversions.h"
#include "store/lower_case.h"
#include "store/network/network_tables.h"
#include "store/query.h"

namespace kiv::store {

namespace {

constexpr std::size_t kMostWords = 64;

/// The numbers of `37`, `1-2` or `1-2-37`, while it is typed also of `1-2-`; none of anything else.
std::vector<std::int32_t> NumbersOf(std::string_view word) {
  std::vector<std::int32_t> numbers;
  while (!word.empty()) {
    std::int32_t number = 0;
    const auto [rest, problem] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (problem != std::errc() || number < 0) return {};
    numbers.push_back(number);
    word.remove_prefix(static_cast<std::size_t>(rest - word.data()));
    if (word.empty()) break;
    if (word[0] != '-' || numbers.size() == 3) return {};
    word.remove_prefix(1);
  }
  return numbers;
}

std::string_view SelectStatement() {
  static const std::string statement = [] {
    using namespace entity_column;
    const NetworkTable& table = TableOf(NetworkTableId::Entities);
    const auto list = [&table](std::initializer_list<std::size_t> columns) {
      std::string text;
      for (const std::size_t column : columns) {
        text += (text.empty() ? "" : ", ") + std::string(table.columns[column].name);
      }
      return text;
    };
    return "SELECT " + list({kInstance, kSystem, kEcp, kCell, kName, kTechnology}) + " FROM " +
           std::string(table.name) + " ORDER BY " + list({kSystem, kEcp, kCell});
  }();
  return statement;
}

}  // namespace

std::string_view KindText(EntityKind kind) {
  constexpr std::array<std::string_view, 3> kTexts = {"System", "ECP", "Cell"};
  return kTexts[static_cast<std::size_t>(kind)];
}

NetworkEntities NetworkEntities::Load(database::Connection& connection) {
  NetworkEntities entities;
  const auto rows = Query(connection, std::string(SelectStatement()));
  entities.rows_.reserve(static_cast<std::size_t>(rows->RecordCount()));
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    int field = 0;
    const auto number = [&] { return ToInt32(rows->FieldAt(field++)); };
    const std::int32_t instance = number();
    const std::int32_t system = number();
    const std::int32_t ecp = number();
    const std::int32_t cell = number();
    const std::string name = ToText(rows->FieldAt(field++));
    entities.Add({system, ecp, cell}, instance, name, ToText(rows->FieldAt(field)));
  }
  entities.names_.shrink_to_fit();
  entities.searchTexts_.shrink_to_fit();
  return entities;
}

void NetworkEntities::Add(const EntityPath& path, std::int32_t instance, std::string_view name,
                          std::string_view technology) {
  const EntityPath parent = path.Parent();
  if (path.cell != 0) {
    if (parent != ecp_) return;
  } else if (path.ecp != 0) {
    if (parent != system_) return;
    ecp_ = path;
  } else {
    system_ = path;
  }
  rows_.push_back({path, instance, static_cast<std::uint32_t>(names_.size()),
                   static_cast<std::uint32_t>(searchTexts_.size()), TechnologyNumber(technology)});
  names_ += name;
  searchTexts_ += LowerCase(name);
  searchTexts_ += '\n';  // no word reaches from one to the other
  searchTexts_ += LowerCase(technology);
}

std::uint32_t NetworkEntities::TechnologyNumber(std::string_view technology) {
  const auto found = std::ranges::find(technologies_, technology);
  const auto number = static_cast<std::uint32_t>(found - technologies_.begin());
  if (found == technologies_.end()) technologies_.emplace_back(technology);
  return number;
}

EntityKind NetworkEntities::Kind(Number entity) const {
  const EntityPath& path = rows_[entity].path;
  if (path.cell != 0) return EntityKind::Cell;
  return path.ecp != 0 ? EntityKind::Ecp : EntityKind::System;
}

std::int32_t NetworkEntities::OwnNumber(Number entity) const {
  const EntityPath& path = rows_[entity].path;
  if (path.cell != 0) return path.cell;
  return path.ecp != 0 ? path.ecp : path.system;
}

host::DraggedNode NetworkEntities::Node(Number entity) const {
  constexpr std::array<std::string_view, 3> kKeyWords = {"System:", "Ecp:", "Cell:"};
  const Row& row = rows_[entity];
  return {std::string(kKeyWords[static_cast<std::size_t>(Kind(entity))]) + std::to_string(row.instance),
          row.path.system, row.path.ecp, row.path.cell, row.instance};
}

EntitySearch::EntitySearch(const std::string& text) {
  const std::string lowered = LowerCase(text);
  std::string_view rest = lowered;
  while (words_.size() < kMostWords) {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    if (rest.empty()) break;
    const std::string_view word = rest.substr(0, rest.find(' '));
    words_.push_back({std::string(word), NumbersOf(word)});
    rest.remove_prefix(word.size());
  }
}

bool EntitySearch::WordFits(const Word& word, const NetworkEntities& entities,
                            NetworkEntities::Number entity) const {
  const bool isPath = word.text.find('-') != std::string::npos && !word.numbers.empty();
  if (isPath) {
    const EntityPath& path = entities.Path(entity);
    return word.numbers[0] == path.system && (word.numbers.size() < 2 || word.numbers[1] == path.ecp) &&
           (word.numbers.size() < 3 || word.numbers[2] == path.cell);
  }
  if (!word.numbers.empty() && word.numbers[0] == entities.OwnNumber(entity)) return true;
  return entities.SearchText(entity).find(word.text) != std::string_view::npos;
}

EntitySearch::Fits EntitySearch::FitsOf(const NetworkEntities& entities,
                                        NetworkEntities::Number entity) const {
  Fits fits = 0;
  for (std::size_t i = 0; i < words_.size(); ++i) {
    if (WordFits(words_[i], entities, entity)) fits |= Fits{1} << i;
  }
  return fits;
}

std::vector<NetworkEntities::Number> EntitySearch::Find(const NetworkEntities& entities) const {
  const Fits all = words_.empty() ? 0 : std::numeric_limits<Fits>::max() >> (kMostWords - words_.size());
  std::vector<NetworkEntities::Number> found;
  // What the system and the ECP of the entity fit; both are listed as soon as something below them is found.
  struct Level {
    NetworkEntities::Number entity = 0;
    Fits fits = 0;
    bool listed = false;
  };
  std::array<Level, 3> levels;
  for (NetworkEntities::Number entity = 0; entity < entities.Count(); ++entity) {
    const auto depth = static_cast<std::size_t>(entities.Kind(entity));
    const Fits above = depth == 0 ? 0 : levels[depth - 1].fits;
    levels[depth] = {entity, above == all ? all : above | FitsOf(entities, entity), false};
    if (levels[depth].fits != all) continue;
    for (std::size_t i = 0; i <= depth; ++i) {
      if (!levels[i].listed) found.push_back(levels[i].entity);
      levels[i].listed = true;
    }
  }
  return found;
}

}  // namespace kiv::store
