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

/// One line of text (UTF-8).
class TextBox : public Control {
 public:
  using Control::Control;

  const std::string& Text() const { return text_; }
  void SetText(std::string text);

  void SetKeyFilter(KeyFilter filter) { filter_ = std::move(filter); }
  /// Runs one key (a UTF-16 code unit) through the key filter; false when it is swallowed.
  bool PassesFilter(char16_t key) const;

  /// What a user does. A box that is not usable ignores it.
  /// Types at the end of the text, each key through the filter; a Backspace removes a character.
  void Type(std::string_view keys);
  /// Pastes at the end of the text, past the filter.
  void Paste(std::string_view text);
  /// Leaves the box with this text; for views whose toolkit does the editing.
  void Edit(std::string text);

  void Accept(ControlVisitor& visitor) override;

  Signal<> Changed;

 private:
  std::string text_;
  KeyFilter filter_;
};

}  // namespace kiv::ui
