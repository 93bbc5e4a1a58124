#pragma once

#include <string>
#include <string_view>

namespace kiv::store {

/// A text as searching and sorting see it, without regard to letter case. UTF-8.
std::string LowerCase(std::string_view text);

}  // namespace kiv::store
