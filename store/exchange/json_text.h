#pragma once

#include <string_view>

#include "store/exchange/json.h"

namespace kiv::store {

/// Reads JSON that anybody may have written. Raises StoreError, with line and column, for text that is no
/// UTF-8 or no JSON, that has a key twice in one object, or that is nested or filled as no export is.
Json ParseJson(std::string_view text);

}  // namespace kiv::store
