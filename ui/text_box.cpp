#include "ui/text_box.h"

#include <algorithm>
#include <utility>

#include "base/utf16.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

template <class Change>
void EditableText::Apply(Change change) {
  const std::string before = edited_.Text();
  change(edited_);
  if (edited_.Text() != before) Changed.Raise();
}

void EditableText::SetText(std::string text) {
  if (Text() == text) return;
  edited_.SetText(std::move(text));
  Changed.Raise();
}

bool EditableText::PassesFilter(char16_t key) const {
  if (!filter_) return true;
  auto keyCode = static_cast<std::int16_t>(key);
  filter_(keyCode);
  return keyCode != 0;
}

bool EditableText::PassesWhole(std::string_view character) const {
  const std::u16string keys = ToUtf16(character);
  return std::all_of(keys.begin(), keys.end(), [this](char16_t key) { return PassesFilter(key); });
}

std::string EditableText::Passed(std::string_view typed) const {
  std::string passed;
  for (const std::string& character : CharactersOf(typed)) {
    if (PassesWhole(character)) passed += character;
  }
  return passed;
}

void EditableText::Select(std::size_t anchor, std::size_t caret) {
  if (Usable()) edited_.Select(ByteAt(Text(), anchor), ByteAt(Text(), caret));
}

void EditableText::Type(std::string_view keys) {
  for (const std::string& character : CharactersOf(keys)) {
    if (!Usable() || !PassesWhole(character) || Edited(character).empty()) continue;
    Apply([&character](CaretText& text) {
      character.front() == kBackspaceKey ? text.DeleteBack() : text.Insert(character);
    });
  }
}

void EditableText::Paste(std::string_view text) {
  if (!Usable()) return;
  Apply([arrives = Pasted(text)](CaretText& edited) { edited.Insert(arrives); });
}

void EditableText::Delete() {
  if (Usable()) Apply([](CaretText& text) { text.DeleteForward(); });
}

void EditableText::Edit(std::string_view text, std::size_t caret) {
  if (!Usable()) return;
  const std::size_t behindCaret = text.size() - ByteAt(text, caret);
  Apply([arrives = Edited(text), behindCaret](CaretText& edited) {
    edited.SetText(arrives);
    const std::size_t place = arrives.size() - std::min(behindCaret, arrives.size());
    edited.Select(place, place);
  });
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
