#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "editor/check_list.h"
#include "ui/text_box.h"

namespace kiv {

/// The wording of the file name rules where the boxes differ.
struct FileNameTexts {
  std::string required;
  std::string noBlanks;
  std::string firstCharacter;
  std::string lengthStart;  ///< goes on with the greatest length and the forbidden characters
};

/// The rules of a box for a data file name pattern: required, no blanks, a letter or digit first, from 1 to
/// `maxLength` characters once expanded, and only characters that the host permits.
CheckList FileNameChecks(ui::TextBox& box, std::function<std::int32_t()> maxLength, FileNameTexts texts);

}  // namespace kiv
