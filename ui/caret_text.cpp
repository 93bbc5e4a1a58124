#include "ui/caret_text.h"

#include <algorithm>
#include <utility>

#include "base/utf16.h"

namespace kiv::ui {

namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kWhiteSpace = " \t\r\n\v\f";

/// Whether a byte goes on with a character that began before it.
bool ContinuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The beginning of the character at or around a position.
std::size_t CharacterAt(std::string_view text, std::size_t position) {
  position = std::min(position, text.size());
  while (position > 0 && position < text.size() && ContinuesCharacter(text[position])) --position;
  return position;
}

/// The end of the character that begins at a position.
std::size_t NextCharacter(std::string_view text, std::size_t position) {
  if (position >= text.size()) return text.size();
  do ++position;
  while (position < text.size() && ContinuesCharacter(text[position]));
  return position;
}

}  // namespace

void CaretText::SetText(std::string text) {
  const std::size_t fromEnd = text_.size() - caret_;
  text_ = std::move(text);
  caret_ = anchor_ = CharacterAt(text_, text_.size() - std::min(fromEnd, text_.size()));
}

void CaretText::Select(std::size_t anchor, std::size_t caret) {
  anchor_ = CharacterAt(text_, anchor);
  caret_ = CharacterAt(text_, caret);
}

void CaretText::Insert(std::string_view characters) {
  const std::size_t from = std::min(anchor_, caret_);
  text_.replace(from, std::max(anchor_, caret_) - from, characters);
  caret_ = anchor_ = from + characters.size();
}

void CaretText::DeleteBack() {
  if (anchor_ == caret_) anchor_ = Before(caret_);
  Insert({});
}

void CaretText::DeleteForward() {
  if (anchor_ == caret_) anchor_ = Behind(caret_);
  Insert({});
}

std::size_t CaretText::Before(std::size_t position) const {
  return position == 0 ? 0 : CharacterAt(text_, position - 1);
}

std::size_t CaretText::Behind(std::size_t position) const {
  return NextCharacter(text_, position);
}

std::size_t UnitsAt(std::string_view text, std::size_t byte) {
  return CharacterCount(text.substr(0, byte));
}

std::size_t ByteAt(std::string_view text, std::size_t units) {
  std::size_t byte = 0;
  while (byte < text.size()) {
    const std::size_t next = NextCharacter(text, byte);
    const std::size_t wide = CharacterCount(text.substr(byte, next - byte));
    if (wide > units) break;
    units -= wide;
    byte = next;
  }
  return byte;
}

std::vector<std::string> CharactersOf(std::string_view text) {
  const std::string valid = ToUtf8(ToUtf16(text));
  std::vector<std::string> characters;
  for (std::size_t byte = 0, next = 0; byte < valid.size(); byte = next) {
    next = NextCharacter(valid, byte);
    characters.push_back(valid.substr(byte, next - byte));
  }
  return characters;
}

std::string OneLine(std::string_view text) {
  while (!text.empty() && kLineEnds.find(text.back()) != std::string_view::npos) text.remove_suffix(1);
  std::string line;
  line.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (isPair) ++i;
    line += kLineEnds.find(text[i]) == std::string_view::npos ? text[i] : ' ';
  }
  return line;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

}  // namespace kiv::ui
