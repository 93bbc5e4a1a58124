#pragma once

#include <span>
#include <string>

#include "host/database.h"

/// The usual rendering of values as SQL text, ready for Database implementations to reuse.
namespace kiv::host {

/// Integers in decimal, texts in single quotes with embedded quotes doubled, NULL for null, `Y`/`N` for
/// booleans. Raises error 13 for an object and error 5 for a text with a NUL character, which no SQL text
/// can carry.
std::string RenderValue(const Variant& value);

/// Values joined with `, `.
std::string RenderValueList(std::span<const Variant> values);

/// ` Name = value, Name = value ` with a blank at both ends.
std::string RenderAssignmentList(std::span<const Assignment> assignments);

/// True for the text `Y`, for boolean true and for numbers other than zero.
bool RenderedAsTrue(const Variant& field);

}  // namespace kiv::host
