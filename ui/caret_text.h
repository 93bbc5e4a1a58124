#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::ui {

/// A text (UTF-8) with a caret and a selection, which stand between characters and never inside one.
/// Positions are bytes of the text; see UnitsAt and ByteAt for those that a user or a script counts.
class CaretText {
 public:
  const std::string& Text() const { return text_; }
  std::size_t Caret() const { return caret_; }
  /// Other end of the selection; the caret when nothing is selected.
  std::size_t Anchor() const { return anchor_; }

  /// Replaces the text; the caret keeps its distance from the end, and nothing is selected.
  void SetText(std::string text);
  void Select(std::size_t anchor, std::size_t caret);
  void MoveLeft() { Select(Before(caret_), Before(caret_)); }
  void MoveRight() { Select(Behind(caret_), Behind(caret_)); }

  /// Puts characters in the place of the selection. The caret stands behind them.
  void Insert(std::string_view characters);
  /// Deletes the selection, or the character before or behind the caret.
  void DeleteBack();
  void DeleteForward();

 private:
  std::size_t Before(std::size_t position) const;
  std::size_t Behind(std::size_t position) const;

  std::string text_;
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;
};

/// How many UTF-16 code units stand before a byte position.
std::size_t UnitsAt(std::string_view text, std::size_t byte);
/// The byte position behind so many UTF-16 code units; the end of a shorter text, the beginning of the
/// character that the position would cut.
std::size_t ByteAt(std::string_view text, std::size_t units);

/// The characters of a text; bytes that are no valid UTF-8 become U+FFFD.
std::vector<std::string> CharactersOf(std::string_view text);

/// A pasted text as a box with one line takes it: a pasted line often comes with its line end, and line ends
/// inside become blanks.
std::string OneLine(std::string_view text);
/// Without white space at both ends.
std::string_view Trimmed(std::string_view text);

}  // namespace kiv::ui
