#include "client/entity_drag.h"

namespace kiv::client {

std::uint16_t EntityDrag::RegisterFormat(const std::string& name) {
  constexpr std::size_t kFirstRegistered = 0xC000;  // numbers below belong to the formats of platforms
  return formats_.try_emplace(name, static_cast<std::uint16_t>(kFirstRegistered + formats_.size()))
      .first->second;
}

std::optional<std::uint16_t> EntityDrag::FindFormat(const std::string& name) const {
  const auto found = formats_.find(name);
  return found == formats_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace kiv::client
