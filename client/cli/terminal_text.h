#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Stored texts on a terminal: they may hold anything, and must neither steer it nor upset a table.
namespace kiv::client {

/// The text with every character that a terminal would obey, such as an escape or a change of the writing
/// direction, written as its number: `\x1B`, `\u202E`. Bytes that are no valid UTF-8 become U+FFFD.
std::string TerminalText(std::string_view text);

/// How many columns a terminal takes for a text of TerminalText.
std::size_t TerminalWidth(std::string_view text);

/// Puts the text of TerminalText at the end of another one. Returns its width.
std::size_t AppendTerminalText(std::string_view text, std::string& to);

}  // namespace kiv::client
