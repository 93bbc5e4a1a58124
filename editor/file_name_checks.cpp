#include "editor/file_name_checks.h"

#include <utility>

#include "base/utf16.h"
#include "core/numeric_text.h"
#include "editor/kiv_study_ctls.h"
#include "host/services.h"

namespace kiv {

using namespace MKivStudyCtls;

namespace {

std::int32_t LengthOf(const std::string& name, NameKind kind) {
  return kind == NameKind::Pattern ? PatternNameLength(name)
                                   : static_cast<std::int32_t>(CharacterCount(name));
}

}  // namespace

FileNameTexts DataFileNameTexts() {
  return {.required = "Data File Destination Filename is a required field.",
          .noBlanks = "Data File Destination Filename cannot contain spaces.",
          .firstCharacter = "The first character of the filename must be AlphaNumeric. ",
          .lengthStart = "A filename must have at least 1 but no more than "};
}

std::string WithoutExtension(std::string name, std::string_view extension) {
  if (name.ends_with(extension)) name.resize(name.size() - extension.size());
  return name;
}

CheckList FileNameChecks(ui::TextBox& box, const std::function<std::int32_t()>& maxLength,
                         FileNameTexts texts, NameKind kind) {
  CheckList checks;
  checks.Add(
      box, [&box] { return !Trimmed(box.Text()).empty(); }, std::move(texts.required));
  checks.Add(
      box, [&box] { return box.Text().find(' ') == std::string::npos; }, std::move(texts.noBlanks));
  checks.Add(
      box, [&box] { return IsAlphaNumeric(ToUtf16(box.Text()).substr(0, 1)); },
      std::move(texts.firstCharacter));
  checks.Add(
      box,
      [&box, maxLength, kind] {
        const std::int32_t length = LengthOf(box.Text(), kind);
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
