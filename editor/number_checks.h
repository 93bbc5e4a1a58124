#pragma once

#include <cstdint>
#include <string>

#include "editor/check_list.h"
#include "ui/text_box.h"

namespace kiv {

/// The range of a box for a number, and what its messages call it.
struct NumberRange {
  std::string subject;
  std::int32_t low;
  std::int32_t high;
  std::string unit;  ///< empty for a number without one
};

/// Such as `Carrier must be numeric.`
std::string NotNumericText(const std::string& subject);
/// Such as `Carrier must be between 1 and 18 inclusive`, to be ended by the caller.
std::string RangeText(const NumberRange& range);

/// The rules of a box for a number: numeric, then within its range, both ends included.
CheckList NumberChecks(ui::TextBox& box, const NumberRange& range);

}  // namespace kiv
