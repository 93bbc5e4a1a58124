#include "ui/masked_edit.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

namespace {

constexpr char kPlace = '#';

/// Whether a byte goes on with a character that began before it.
bool ContinuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t StepBack(std::string_view text, std::size_t position) {
  if (position == 0) return 0;
  do --position;
  while (position > 0 && ContinuesCharacter(text[position]));
  return position;
}

std::size_t StepForward(std::string_view text, std::size_t position) {
  if (position == text.size()) return position;
  do ++position;
  while (position < text.size() && ContinuesCharacter(text[position]));
  return position;
}

std::size_t Characters(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), ContinuesCharacter));
}

}  // namespace

std::size_t MaskedEdit::DigitPlaces(std::string_view mask) {
  return static_cast<std::size_t>(std::count(mask.begin(), mask.end(), kPlace));
}

void MaskedEdit::SetMask(std::string mask) {
  if (mask_ == mask) return;
  mask_ = std::move(mask);
  Replace(0, entered_.size(), Accepted(entered_));
  MaskChanged.Raise();
}

std::string MaskedEdit::Text() const {
  const bool full = entered_.size() >= DigitPlaces(mask_);
  std::string shown;
  std::size_t next = 0;
  for (const char place : mask_) {
    // What stands behind the last digit shows once every place is taken.
    if (next == entered_.size() && (!full || entered_.empty())) return shown;
    shown += place == kPlace ? entered_[next++] : place;
  }
  return shown + entered_.substr(next);
}

void MaskedEdit::SetText(std::string_view text) {
  Replace(0, entered_.size(), Accepted(text));
}

std::string MaskedEdit::Accepted(std::string_view text) const {
  std::string accepted(text);
  if (!mask_.empty()) std::erase_if(accepted, [](char character) { return !IsAsciiDigit(character); });
  return accepted;
}

void MaskedEdit::Replace(std::size_t from, std::size_t to, std::string_view with) {
  const std::string before = entered_;
  entered_.replace(from, to - from, with);
  cursor_ = anchor_ = from + with.size();
  if (entered_ != before) Changed.Raise();
}

/// Behind the characters that were entered before it, and the literals in front of the next one.
std::size_t MaskedEdit::ShownPosition(std::size_t enteredPosition) const {
  std::size_t shown = 0;
  std::size_t left = enteredPosition;
  for (const char place : mask_) {
    const bool behindAll = left == 0 && enteredPosition == entered_.size();
    if (behindAll || (left == 0 && place == kPlace)) return shown;
    if (place == kPlace) --left;
    if (!ContinuesCharacter(place)) ++shown;
  }
  return shown + Characters(std::string_view(entered_).substr(enteredPosition - left, left));
}

std::size_t MaskedEdit::EnteredPosition(std::size_t shownPosition) const {
  std::size_t position = 0;
  while (position < entered_.size() && ShownPosition(position) < shownPosition) {
    position = StepForward(entered_, position);
  }
  return position;
}

void MaskedEdit::Select(std::size_t shownAnchor, std::size_t shownCursor) {
  if (!Usable()) return;
  anchor_ = EnteredPosition(shownAnchor);
  cursor_ = EnteredPosition(shownCursor);
}

void MaskedEdit::MoveLeft() {
  if (Usable()) cursor_ = anchor_ = StepBack(entered_, cursor_);
}

void MaskedEdit::MoveRight() {
  if (Usable()) cursor_ = anchor_ = StepForward(entered_, cursor_);
}

void MaskedEdit::Type(std::string_view keys) {
  if (!Usable()) return;
  const std::string accepted = Accepted(keys);
  if (!accepted.empty()) Replace(std::min(anchor_, cursor_), std::max(anchor_, cursor_), accepted);
}

void MaskedEdit::Backspace() {
  if (!Usable()) return;
  const std::size_t from = anchor_ == cursor_ ? StepBack(entered_, cursor_) : std::min(anchor_, cursor_);
  Replace(from, std::max(anchor_, cursor_), {});
}

void MaskedEdit::Delete() {
  if (!Usable()) return;
  const std::size_t to = anchor_ == cursor_ ? StepForward(entered_, cursor_) : std::max(anchor_, cursor_);
  Replace(std::min(anchor_, cursor_), to, {});
}

void MaskedEdit::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
