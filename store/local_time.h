#pragma once

#include <string>

namespace kiv::store {

/// A stored time, which is UTC such as 2026-03-09T13:05:00Z, as the user reads it: in local time and in the
/// short form of the locale. Anything else stays as it is.
std::string LocalTimeText(const std::string& utc);

}  // namespace kiv::store
