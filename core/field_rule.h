#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/variant.h"

namespace kiv {

/// The values that the pages of an editor can give a field. A default constructed rule lets every value pass.
struct FieldRule {
  std::function<bool(const Variant&)> allows;
  std::string words;  ///< what a field must be, such as `between 1 and 18`

  bool Holds(const Variant& value) const { return !allows || allows(value); }
  /// Such as `HomMode must be between 0 and 2, not 9`.
  std::string FaultText(std::string_view field, const Variant& value) const;
};

/// A number from low to high, both included.
FieldRule Between(std::int32_t low, std::int32_t high);
/// The texts "Y" and "N", or nothing yet, which counts as "N".
FieldRule YesOrNo();
/// One of these texts; an empty one among them is nothing chosen.
FieldRule OneOf(std::vector<std::string_view> words);
/// A text of characters that pass.
FieldRule MadeOf(std::function<bool(char16_t)> passes, std::string words);
/// The same, or NULL.
FieldRule NullOr(FieldRule rule);

}  // namespace kiv
