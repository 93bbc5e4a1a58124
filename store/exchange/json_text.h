#pragma once

#include <string_view>

#include "store/exchange/json.h"

namespace kiv::store {

/// Reads JSON that anybody may have written. Raises StoreError, with line and column, for text that is no
/// UTF-8 or no JSON, that has a key twice in one object, or that is nested or filled as no export is.
Json ParseJson(std::string_view text);

/// Checks the JSON of a study that this program wrote and somebody else may have changed, without taking it
/// in. Raises StoreError with the reason when it is broken, or nested or filled as no study is.
void CheckWrittenJson(std::string_view text);

}  // namespace kiv::store
