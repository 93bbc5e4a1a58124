#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "ui/control.h"

namespace kiv::ui {

/// A box for digits that shows the literals of a pattern between them: with the mask `###-####` the digits
/// 5551234 read 555-1234. Digits beyond the places of the mask follow it. Without a mask it is a plain box.
///
/// The cursor and the selection stand between entered characters, never between a literal and its neighbour:
/// literals are stepped over, and cannot be deleted.
class MaskedEdit : public Control {
 public:
  using Control::Control;

  /// `#` stands for a digit, every other character for itself.
  const std::string& Mask() const { return mask_; }
  /// Keeps the entered characters.
  void SetMask(std::string mask);

  /// What the box shows.
  std::string Text() const;
  /// Enters the text; with a mask only its digits.
  void SetText(std::string_view text);
  /// The entered characters, without the mask's literals.
  const std::string& ClipText() const { return entered_; }

  /// Position of the cursor in the shown text, in characters.
  std::size_t CursorPosition() const { return ShownPosition(cursor_); }
  /// Other end of the selection; the cursor's position when nothing is selected.
  std::size_t AnchorPosition() const { return ShownPosition(anchor_); }

  /// What a user does. A box that is not usable ignores it.
  void MoveCursor(std::size_t shownPosition) { Select(shownPosition, shownPosition); }
  void Select(std::size_t shownAnchor, std::size_t shownCursor);
  void MoveLeft();
  void MoveRight();
  /// Types or pastes over the selection; with a mask everything but digits is dropped.
  void Type(std::string_view keys);
  void Paste(std::string_view text) { Type(text); }
  /// Deletes the selection, or the character before or behind the cursor.
  void Backspace();
  void Delete();

  void Accept(ControlVisitor& visitor) override;

  /// Raised when the entered characters changed.
  Signal<> Changed;
  /// Raised when the mask changed.
  Signal<> MaskChanged;

  /// Number of digit places of a mask.
  static std::size_t DigitPlaces(std::string_view mask);

 private:
  std::string Accepted(std::string_view text) const;
  void Replace(std::size_t from, std::size_t to, std::string_view with);
  std::size_t ShownPosition(std::size_t enteredPosition) const;
  std::size_t EnteredPosition(std::size_t shownPosition) const;

  std::string mask_;
  std::string entered_;
  std::size_t cursor_ = 0;  // positions in the entered text
  std::size_t anchor_ = 0;
};

}  // namespace kiv::ui
