#include "editor/number_checks.h"

#include "core/numeric_text.h"

namespace kiv {

CheckList NumberChecks(ui::TextBox& box, const NumberRange& range) {
  CheckList checks;
  checks.Add(
      box, [&box] { return IsNumeric(box.Text()); }, range.subject + " must be numeric.");
  checks.Add(
      box, [&box, low = range.low, high = range.high] { return IsNumberBetween(box.Text(), low, high); },
      range.subject + " must be between " + std::to_string(range.low) + " and " + std::to_string(range.high) +
          (range.unit.empty() ? "" : " " + range.unit) + " inclusive.");
  return checks;
}

}  // namespace kiv
