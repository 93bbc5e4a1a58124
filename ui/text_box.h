#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "ui/caret_text.h"
#include "ui/control.h"

namespace kiv::ui {

/// Looks at a key before it reaches a box; sets the key to 0 to swallow it.
using KeyFilter = std::function<void(std::int16_t& keyCode)>;

/// Key code of the Backspace key, which a key filter sees like a character.
inline constexpr std::int16_t kBackspaceKey = 8;

/// Text (UTF-8) that a user edits, whether it has one line or several. Positions count UTF-16 code units.
class EditableText : public Control {
 public:
  using Control::Control;

  const std::string& Text() const { return edited_.Text(); }
  /// The caret keeps its distance from the end.
  void SetText(std::string text);

  void SetKeyFilter(KeyFilter filter) { filter_ = std::move(filter); }
  /// Runs one key (a UTF-16 code unit) through the key filter; false when it is swallowed.
  bool PassesFilter(char16_t key) const;
  /// What the key filter lets through of typed characters; of a character that is two keys, both or none.
  std::string Passed(std::string_view typed) const;

  std::size_t CaretPosition() const { return UnitsAt(Text(), edited_.Caret()); }
  /// Other end of the selection; the caret's position when nothing is selected.
  std::size_t AnchorPosition() const { return UnitsAt(Text(), edited_.Anchor()); }

  // What a user does. A box that is not usable ignores it.
  void MoveCaret(std::size_t position) { Select(position, position); }
  void Select(std::size_t anchor, std::size_t caret);
  /// Types over the selection, each key through the filter; a Backspace among them deletes.
  void Type(std::string_view keys);
  /// Pastes over the selection, past the key filter.
  void Paste(std::string_view text);
  /// Deletes the selection, or the character before or behind the caret. The Backspace key passes the filter.
  void Backspace() { Type("\b"); }
  void Delete();
  /// Leaves the box with this text and the caret there; for views whose toolkit does the editing.
  void Edit(std::string_view text, std::size_t caret);
  void Edit(std::string_view text) { Edit(text, text.size()); }

  Signal<> Changed;

 protected:
  /// What arrives of a pasted text.
  virtual std::string Pasted(std::string_view text) const = 0;
  /// What the box holds after the toolkit's editing.
  virtual std::string Edited(std::string_view text) const = 0;

 private:
  bool PassesWhole(std::string_view character) const;
  /// Changes the text and raises the event when that made a difference.
  template <class Change>
  void Apply(Change change);

  CaretText edited_;
  KeyFilter filter_;
};

/// One line of text: what comes with line ends arrives without them.
class TextBox : public EditableText {
 public:
  using EditableText::EditableText;
  void Accept(ControlVisitor& visitor) override;

 protected:
  std::string Pasted(std::string_view text) const override { return OneLine(text); }
  std::string Edited(std::string_view text) const override { return OneLine(text); }
};

/// Lines of text, each but the last followed by `\n`.
class TextArea : public EditableText {
 public:
  using EditableText::EditableText;

  /// Makes of a pasted text what is to arrive.
  using PasteFilter = std::function<std::string(std::string_view text)>;
  void SetPasteFilter(PasteFilter filter) { pasteFilter_ = std::move(filter); }
  std::string Pasted(std::string_view text) const override;

  void Accept(ControlVisitor& visitor) override;

 protected:
  std::string Edited(std::string_view text) const override { return std::string(text); }

 private:
  PasteFilter pasteFilter_;
};

}  // namespace kiv::ui
