#pragma once

#include <cstdint>
#include <string>

#include "base/variant.h"

namespace kiv {

/// A whole number from a number (a fraction rounds half to even), a boolean (true is -1) or the text of a
/// whole number. Raises error 13 for anything else, NULL included, and error 6 beyond 32 bits.
std::int32_t ToInt32(const Variant& value);
/// The same; raises error 6 beyond 16 bits.
std::int16_t ToInt16(const Variant& value);

/// The text of a value; NULL reads as empty. Raises error 13 for an object.
std::string ToText(const Variant& value);

}  // namespace kiv
