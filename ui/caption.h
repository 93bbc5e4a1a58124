#pragma once

#include <string>
#include <string_view>

/// How captions read. An `&` stands before the mnemonic letter of a caption; `&&` is one `&`.
namespace kiv::ui {

/// A caption without its mnemonic mark.
std::string PlainCaption(std::string_view caption);
/// A label as a screen reader says it: a plain caption without the colon at its end.
std::string SpokenLabel(std::string_view caption);
/// The mnemonic letter or digit, in lower case; 0 for a caption that has none.
char MnemonicOf(std::string_view caption);

}  // namespace kiv::ui
