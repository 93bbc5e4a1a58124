#include "client/entity_drag.h"

namespace kiv::client {

std::uint16_t EntityDrag::RegisterFormat(const std::string& name) {
  constexpr std::size_t kFirstRegistered = 0xC000;  // numbers below belong to the formats of platforms
  return formats_.try_emplace(name, static_cast<std::uint16_t>(kFirstRegistered + formats_.size()))
      .first->second;
}

}  // namespace kiv::client
