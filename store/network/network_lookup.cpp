#include "store/network/network_lookup.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "core/conversions.h"
#include "store/network/network_index.h"
#include "store/network/network_tables.h"
#include "store/query.h"

namespace kiv::store {

namespace {

constexpr const char* kNotThere = " is not in the stored network";

std::int32_t CellOf(const CEntity& entity) {
  const auto* cell = dynamic_cast<const CCell*>(&entity);
  return cell ? cell->CellID() : 0;
}

std::string TextOf(const CEntity& entity) {
  return EntityPath{entity.SystemID(), entity.EcpID(), CellOf(entity)}.Text();
}

}  // namespace

/// Entities of one ECP, few enough for one statement.
class NetworkLookup::Group {
 public:
  Group(host::Database& database, const CEntity& first)
      : database_(database), system_(first.SystemID()), ecp_(first.EcpID()) {}

  bool IsFull() const { return entities_.size() == kMost; }
  void Add(const CEntity& entity) {
    entities_.push_back(&entity);
    cells_ += (cells_.empty() ? "" : ", ") + std::to_string(CellOf(entity));
  }

  void AddProblems(std::vector<std::string>& problems) const {
    const auto stored = StoredInstances();
    const auto antennas = Pairs("SELECT cell, rfpi FROM luc_cfg_ceqsu2 WHERE " + Where("", "ecp", "cell"));
    const auto carriers = StoredCarriers();
    for (const CEntity* entity : entities_) {
      const std::string text = TextOf(*entity);
      const auto found = stored.find(CellOf(*entity));
      if (found == stored.end()) {
        problems.push_back(text + kNotThere);
        continue;
      }
      if (entity->InstanceID() != found->second) {
        problems.push_back(text + " has instance " + std::to_string(found->second) +
                           " in the stored network, not " + std::to_string(entity->InstanceID()));
      }
      const auto* cell = dynamic_cast<const CCell*>(entity);
      if (!cell) continue;
      AddMissing(problems, *cell, cell->Antennas(), &CAntenna::AntennaID, antennas, "antenna ");
      AddMissing(problems, *cell, cell->Carriers(), &CAntenna::CarrierID, carriers, "carrier ");
    }
  }

 private:
  static constexpr std::size_t kMost = 500;
  using NumberPairs = std::set<std::pair<std::int32_t, std::int32_t>>;

  std::string Where(const std::string& table, const std::string& ecp, const std::string& cell) const {
    return table + "system_id = " + std::to_string(system_) + " AND " + table + ecp + " = " +
           std::to_string(ecp_) + " AND " + table + cell + " IN (" + cells_ + ")";
  }

  NumberPairs Pairs(const std::string& sql) const {
    NumberPairs pairs;
    const auto rows = Query(database_, sql);
    for (; !rows->EndOfFile(); rows->MoveNext()) {
      pairs.emplace(ToInt32(rows->FieldAt(0)), ToInt32(rows->FieldAt(1)));
    }
    return pairs;
  }

  std::map<std::int32_t, std::int32_t> StoredInstances() const {
    const auto pairs =
        Pairs("SELECT cell_id, instance_id FROM " + std::string(TableOf(NetworkTableId::Entities).name) +
              " WHERE " + Where("", "ecp_id", "cell_id"));
    return {pairs.begin(), pairs.end()};
  }

  /// Those of its own, or of its CGSA where a cell has none of its own.
  NumberPairs StoredCarriers() const {
    NumberPairs carriers =
        Pairs("SELECT cell, cdma_carr_id FROM luc_cfg_cdma_car_chans WHERE " + Where("", "ecp", "cell"));
    std::set<std::int32_t> withOwn;
    for (const auto& [cell, carrier] : carriers) withOwn.insert(cell);
    const NumberPairs ofCgsa = Pairs(
        "SELECT b.cell, a.carrier_no FROM luc_cfg_cgsa_cdma_cars a, luc_cfg_cgsa_cell_list b "
        "WHERE a.system_id = b.system_id AND a.ecp = b.ecp AND a.cgsano = b.cgsano AND " +
        Where("b.", "ecp", "cell"));
    std::ranges::copy_if(ofCgsa, std::inserter(carriers, carriers.end()),
                         [&withOwn](const auto& pair) { return !withOwn.contains(pair.first); });
    return carriers;
  }

  static void AddMissing(std::vector<std::string>& problems, const CCell& cell,
                         const std::shared_ptr<AntennaCollection>& parts,
                         std::int32_t (CAntenna::*number)() const, const NumberPairs& stored,
                         const char* word) {
    if (!parts) return;
    for (const auto& part : *parts) {
      const std::int32_t own = ((*part).*number)();
      // The lists of a cell may hold those of its namesake on another ECP as well.
      if (!part->SharesEcpWith(cell) || stored.contains({cell.CellID(), own})) continue;
      problems.push_back(word + std::to_string(own) + " of " + TextOf(cell) + kNotThere);
    }
  }

  host::Database& database_;
  std::int32_t system_;
  std::int32_t ecp_;
  std::vector<const CEntity*> entities_;
  std::string cells_;
};

NetworkLookup::NetworkLookup(host::Database& database)
    : database_(database),
      known_(!Query(database, "SELECT instance_id FROM " +
                                  std::string(TableOf(NetworkTableId::Entities).name) + " LIMIT 1")
                  ->EndOfFile()) {}

std::vector<std::string> NetworkLookup::ProblemsOf(const EntityCollection& entities) const {
  std::vector<Group> groups;
  std::map<std::pair<std::int32_t, std::int32_t>, std::size_t> open;  // of each ECP, the group with room
  for (const auto& entity : entities) {
    const auto [found, isNew] = open.try_emplace({entity->SystemID(), entity->EcpID()}, groups.size());
    if (isNew || groups[found->second].IsFull()) {
      found->second = groups.size();
      groups.emplace_back(database_, *entity);
    }
    groups[found->second].Add(*entity);
  }
  std::vector<std::string> problems;
  for (const Group& group : groups) group.AddProblems(problems);
  return problems;
}

}  // namespace kiv::store
