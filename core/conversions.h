#pragma once

#include <cstdint>
#include <string>

#include "base/variant.h"

namespace kiv {

/// What a value means where a number or a text is wanted. A missing one (NULL) is no number and reads as an
/// empty text; an empty text is no number either.

/// A whole number from a number or the decimal text of one (a fraction rounds half to even), or from a
/// boolean (true is -1). Raises error 13 for anything else and error 6 beyond 32 bits.
std::int32_t ToInt32(const Variant& value);
/// The same; a missing value is the number given for it.
std::int32_t ToInt32Or(const Variant& value, std::int32_t whenNull);
/// The same; raises error 6 beyond 16 bits.
std::int16_t ToInt16(const Variant& value);

/// The text of a value; NULL reads as empty. Raises error 13 for an object.
std::string ToText(const Variant& value);

}  // namespace kiv
