#include "editor/number_checks.h"

#include "core/numeric_text.h"

namespace kiv {

std::string NotNumericText(const std::string& subject) {
  return subject + " must be numeric.";
}

std::string RangeText(const NumberRange& range) {
  return range.subject + " must be between " + std::to_string(range.low) + " and " +
         std::to_string(range.high) + (range.unit.empty() ? "" : " " + range.unit) + " inclusive";
}

CheckList NumberChecks(ui::TextBox& box, const NumberRange& range) {
  CheckList checks;
  checks.Add(
      box, [&box] { return IsNumeric(box.Text()); }, NotNumericText(range.subject));
  checks.Add(
      box, [&box, low = range.low, high = range.high] { return IsNumberBetween(box.Text(), low, high); },
      RangeText(range) + ".");
  return checks;
}

}  // namespace kiv
