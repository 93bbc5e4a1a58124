#include "ui/text_box.h"

#include <utility>

#include "base/utf16.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

void EditableText::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  Changed.Raise();
}

bool EditableText::PassesFilter(char16_t key) const {
  if (!filter_) return true;
  auto keyCode = static_cast<std::int16_t>(key);
  filter_(keyCode);
  return keyCode != 0;
}

void EditableText::Type(std::string_view keys) {
  if (!Usable()) return;
  for (const char16_t key : ToUtf16(keys)) {
    if (!PassesFilter(key)) continue;
    std::u16string text = ToUtf16(text_);
    if (key != kBackspaceKey) {
      text += key;
    } else if (!text.empty()) {
      text.pop_back();
    }
    SetText(ToUtf8(text));
  }
}

void EditableText::Append(std::string_view text) {
  if (Usable()) SetText(text_ + std::string(text));
}

void EditableText::Edit(std::string text) {
  if (Usable()) SetText(std::move(text));
}

std::string TextArea::Pasted(std::string_view text) const {
  return pasteFilter_ ? pasteFilter_(text) : std::string(text);
}

void TextBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void TextArea::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
