#pragma once

#include <string>

namespace kiv::store {

/// Now, as the database keeps times: UTC, such as 2026-03-09T13:05:00Z.
std::string UtcNow();

}  // namespace kiv::store
