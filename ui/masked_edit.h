#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/caret_text.h"
#include "ui/control.h"

namespace kiv::ui {

/// A box for digits that shows the literals of a pattern between them: with the mask `###-####` the digits
/// 5551234 read 555-1234. Digits beyond the places of the mask follow it. Without a mask it is a plain box.
///
/// The caret and the selection stand between entered characters, never between a literal and its neighbour:
/// literals are stepped over, and cannot be deleted. Positions count UTF-16 code units of the shown text.
class MaskedEdit : public Control {
 public:
  using Control::Control;

  /// `#` stands for a digit, every other character for itself.
  const std::string& Mask() const { return mask_; }
  /// Keeps the entered characters that the mask has places for, which are digits.
  void SetMask(std::string mask);

  /// What the box shows.
  std::string Text() const { return Show().text; }
  /// Enters the text; with a mask only its digits.
  void SetText(std::string_view text);
  /// The entered characters, without the mask's literals.
  const std::string& ClipText() const { return entered_.Text(); }

  std::size_t CaretPosition() const { return ShownPosition(entered_.Caret()); }
  /// Other end of the selection; the caret's position when nothing is selected.
  std::size_t AnchorPosition() const { return ShownPosition(entered_.Anchor()); }

  // What a user does. A box that is not usable ignores it.
  void MoveCaret(std::size_t shownPosition) { Select(shownPosition, shownPosition); }
  void Select(std::size_t shownAnchor, std::size_t shownCaret);
  void MoveLeft();
  void MoveRight();
  /// Types over the selection; with a mask everything but digits is dropped.
  void Type(std::string_view keys);
  /// Pastes over the selection, without white space around the text and on one line. Of a text that reads
  /// like what the mask shows, or a piece of it, the mask's own digits are not the user's.
  void Paste(std::string_view text);
  /// Deletes the selection, or the character before or behind the caret.
  void Backspace();
  void Delete();
  /// The shown text was edited past the keys, as by a drop or a menu, and the caret stands where the edit
  /// ended: takes over what is new or missing in it, like a paste.
  void Edit(std::string_view shown, std::size_t caret);

  void Accept(ControlVisitor& visitor) override;

  /// Raised when the entered characters changed.
  Signal<> Changed;
  /// Raised when the mask changed.
  Signal<> MaskChanged;

  /// Number of digit places of a mask.
  static std::size_t DigitPlaces(std::string_view mask);

 private:
  /// What the box shows, and the byte in it before which each entered one stands; one more is the end.
  struct Shown {
    std::string text;
    std::vector<std::size_t> places;

    std::size_t EnteredPosition(std::size_t byte) const;
  };
  Shown Show() const;

  std::string Accepted(std::string_view text) const;
  std::string OwnDigits(std::string_view text) const;
  /// The entered characters of a text that reads as the mask shows them from `start` on.
  std::optional<std::string> ReadByMask(std::size_t start, std::string_view text) const;
  /// Changes the entered characters and raises the event when that made a difference.
  template <class Change>
  void Apply(Change change);
  std::size_t ShownPosition(std::size_t enteredPosition) const;

  std::string mask_;
  CaretText entered_;
};

}  // namespace kiv::ui
