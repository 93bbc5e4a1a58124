#include "editor/file_name_checks.h"

#include <utility>

#include "base/utf16.h"
#include "core/kiv_study_ctls.h"
#include "core/numeric_text.h"
#include "host/services.h"

namespace kiv {

using namespace MKivStudyCtls;

CheckList FileNameChecks(ui::TextBox& box, std::function<std::int32_t()> maxLength, FileNameTexts texts) {
  CheckList checks;
  checks.Add(
      box, [&box] { return !Trimmed(box.Text()).empty(); }, std::move(texts.required));
  checks.Add(
      box, [&box] { return box.Text().find(' ') == std::string::npos; }, std::move(texts.noBlanks));
  checks.Add(
      box, [&box] { return IsAlphaNumeric(ToUtf8(ToUtf16(box.Text()).substr(0, 1))); },
      std::move(texts.firstCharacter));
  checks.Add(
      box,
      [&box, maxLength] {
        const std::int32_t length = PatternNameLength(box.Text());
        return length >= 1 && length <= maxLength() &&
               host::TheFileNameRules().HasOnlyPermittedCharacters(box.Text());
      },
      [maxLength, start = std::move(texts.lengthStart)] {
        return start + std::to_string(maxLength()) + " characters\r\n" +
               "and cannot include any of the following characters: " +
               host::TheFileNameRules().ForbiddenCharacters();
      });
  return checks;
}

}  // namespace kiv
