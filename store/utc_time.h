#pragma once

#include <string>

namespace kiv::client {

/// Now, as the database keeps times: UTC, such as 2026-03-09T13:05:00Z.
std::string UtcNow();

}  // namespace kiv::client
