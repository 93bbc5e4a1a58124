#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "editor/check_list.h"
#include "ui/text_box.h"

namespace kiv {

/// Greatest length of a data file name without its extension; that of the usual pattern, expanded.
inline constexpr std::int32_t kMaxDataFileName = 11;

/// The name without this extension, if it ends in it.
std::string WithoutExtension(std::string name, std::string_view extension);

/// The wording of the file name rules where the boxes differ.
struct FileNameTexts {
  std::string required;
  std::string noBlanks;
  std::string firstCharacter;
  std::string lengthStart;  ///< goes on with the greatest length and the forbidden characters
};

/// The usual wording.
FileNameTexts DataFileNameTexts();

/// How the characters of a name are counted.
enum class NameKind {
  Pattern,  ///< expanded: tokens count as what they stand for
  Plain     ///< as they are
};

/// The rules of a box for a data file name: required, no blanks, a letter or digit first, from 1 to
/// `maxLength` characters, and only characters that the host permits.
CheckList FileNameChecks(ui::TextBox& box, const std::function<std::int32_t()>& maxLength,
                         FileNameTexts texts, NameKind kind = NameKind::Pattern);

}  // namespace kiv
