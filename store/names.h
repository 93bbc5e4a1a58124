#pragma once

#include <string>
#include <string_view>

namespace kiv::store {

/// Of studies and of scenarios, in UTF-16 code units.
inline constexpr std::size_t kLongestName = 255;

/// What is wrong with a name that is not empty, to follow it in a sentence; empty when nothing is.
std::string NameFault(std::string_view name);

}  // namespace kiv::store
