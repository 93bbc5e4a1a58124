#include "editor/page_field.h"

#include "core/numeric_text.h"
#include "editor/kiv_study_ctls.h"

namespace kiv {

using namespace MKivStudyCtls;

std::string RememberedText(bool yes) {
  return BoolToYN(yes);
}

void TakeRemembered(const std::string& text, bool& value) {
  value = YNToCheckValue(text) != 0;
}

Place<std::string> AsText(const Place<std::int32_t>& number) {
  return {[number] { return std::to_string(number.read()); },
          [number](const std::string& text) { number.write(NumberOr(text, number.read())); }, number.field};
}

Place<bool> AsYes(const Place<std::string>& choice) {
  return {[choice] { return YNToCheckValue(choice.read()) != 0; },
          [choice](bool yes) { choice.write(BoolToYN(yes)); }, choice.field};
}

}  // namespace kiv
