#pragma once

#include <string_view>

namespace kiv {

/// Extension of the data files of HOM studies.
inline constexpr std::string_view kHomExtension = ".hom";

}  // namespace kiv
