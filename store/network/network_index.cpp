#include "store/network/network_index.h"

#include <array>
#include <charconv>
#include <optional>

#include "store/network/network_tables.h"

namespace kiv::store {

namespace {

std::string NotThere(const std::string& what) {
  return what + " is not in " + FileNameOf(TableOf(NetworkTableId::Entities));
}

/// The path that a text such as `1-2-37` names; nothing when it is no path.
std::optional<EntityPath> ParsePath(std::string_view text) {
  std::array<std::int32_t, 3> numbers{};
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::int32_t& number : numbers) {
    const auto [rest, problem] = std::from_chars(at, end, number);
    if (problem != std::errc() || number < 1) return std::nullopt;
    if (rest == end) return EntityPath{numbers[0], numbers[1], numbers[2]};
    if (*rest != '-') return std::nullopt;
    at = rest + 1;
  }
  return std::nullopt;
}

}  // namespace

EntityPath EntityPath::Parent() const {
  return cell != 0 ? EntityPath{system, ecp, 0} : EntityPath{system, 0, 0};
}

std::string EntityPath::Text() const {
  const std::string number = std::to_string(system);
  if (ecp == 0) return "system " + number;
  const std::string numbers = number + "-" + std::to_string(ecp);
  return cell == 0 ? "ECP " + numbers : "cell " + numbers + "-" + std::to_string(cell);
}

std::size_t EntityIndex::Hash::operator()(const EntityPath& path) const {
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
  std::uint64_t hash = static_cast<std::uint32_t>(path.system);
  hash = (hash * kSpread) ^ static_cast<std::uint32_t>(path.ecp);
  hash = (hash * kSpread) ^ static_cast<std::uint32_t>(path.cell);
  return hash * kSpread >> 16;
}

void EntityIndex::Add(const EntityPath& path, std::int32_t instance) {
  instances_.try_emplace(path, instance);
  if (instance != 0) paths_.try_emplace(instance, path);
}

std::string EntityIndex::ProblemWithPlace(const EntityPath& path) const {
  return instances_.contains(path) ? std::string() : NotThere(path.Text());
}

std::string EntityIndex::ProblemWithParent(const EntityPath& path, std::string_view column,
                                           std::int32_t instance) const {
  const EntityPath parent = path.Parent();
  if (parent == path) return {};
  const auto found = instances_.find(parent);
  if (found == instances_.end()) return NotThere(parent.Text());
  if (found->second == instance || found->second == 0) return {};
  return std::string(column) + " " + std::to_string(instance) + " is not the instance of " + parent.Text() +
         ", which is " + std::to_string(found->second);
}

std::string EntityIndex::ProblemWithKeyAndParent(std::string_view fullKey, std::string_view column,
                                                 std::int32_t instance) const {
  const auto path = ParsePath(fullKey);
  if (!path || !instances_.contains(*path)) return NotThere("\"" + std::string(fullKey) + "\"");
  return ProblemWithParent(*path, column, instance);
}

std::string EntityIndex::ProblemWithEcp(std::string_view column, std::int32_t instance) const {
  const auto found = paths_.find(instance);
  const bool isEcp = found != paths_.end() && found->second.ecp != 0 && found->second.cell == 0;
  if (isEcp) return {};
  return NotThere("an ECP with " + std::string(column) + " " + std::to_string(instance));
}

}  // namespace kiv::store
