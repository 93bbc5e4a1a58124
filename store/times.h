#pragma once

#include <string>

namespace kiv::store {

/// Now, as the database keeps times: UTC, such as 2026-03-09T13:05:00Z.
std::string UtcNow();

/// A stored time as the user reads it: the local time, such as 2026-03-09 14:05 in every language. Anything
/// else stays as it is.
std::string LocalTimeText(const std::string& utc);

}  // namespace kiv::store
