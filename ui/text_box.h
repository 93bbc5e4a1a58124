#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "ui/control.h"

namespace kiv::ui {

/// Looks at a key before it reaches a box; sets the key to 0 to swallow it.
using KeyFilter = std::function<void(std::int16_t& keyCode)>;

/// Key code of the Backspace key, which a key filter sees like a character.
inline constexpr std::int16_t kBackspaceKey = 8;

/// Text (UTF-8) that a user edits, whether it has one line or several.
class EditableText : public Control {
 public:
  using Control::Control;

  const std::string& Text() const { return text_; }
  void SetText(std::string text);

  void SetKeyFilter(KeyFilter filter) { filter_ = std::move(filter); }
  /// Runs one key (a UTF-16 code unit) through the key filter; false when it is swallowed.
  bool PassesFilter(char16_t key) const;

  // What a user does. A box that is not usable ignores it.
  /// Types at the end of the text, each key through the filter; a Backspace removes a character.
  void Type(std::string_view keys);
  /// Leaves the box with this text; for views whose toolkit does the editing.
  void Edit(std::string text);

  Signal<> Changed;

 protected:
  /// Adds what a user puts at the end.
  void Append(std::string_view text);

 private:
  std::string text_;
  KeyFilter filter_;
};

/// One line of text.
class TextBox : public EditableText {
 public:
  using EditableText::EditableText;

  /// The user pastes at the end of the text, past the key filter.
  void Paste(std::string_view text) { Append(text); }

  void Accept(ControlVisitor& visitor) override;
};

/// Lines of text, each but the last followed by `\n`.
class TextArea : public EditableText {
 public:
  using EditableText::EditableText;

  /// Makes of a pasted text what is to arrive.
  using PasteFilter = std::function<std::string(std::string_view text)>;
  void SetPasteFilter(PasteFilter filter) { pasteFilter_ = std::move(filter); }
  std::string Pasted(std::string_view text) const;

  /// The user pastes at the end of the text, past the key filter and through the paste filter.
  void Paste(std::string_view text) { Append(Pasted(text)); }

  void Accept(ControlVisitor& visitor) override;

 private:
  PasteFilter pasteFilter_;
};

}  // namespace kiv::ui
