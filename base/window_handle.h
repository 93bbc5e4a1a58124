#pragma once

#include <cstdint>

namespace kiv {

/// A window as its platform tells it from others, whatever the toolkit.
using WindowHandle = std::uintptr_t;

inline constexpr WindowHandle kNoWindow = 0;

}  // namespace kiv
