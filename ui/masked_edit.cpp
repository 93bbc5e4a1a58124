#include "ui/masked_edit.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/ascii.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

namespace {

constexpr char kPlace = '#';

std::size_t LengthOfCommonEnd(std::string_view left, std::string_view right) {
  const auto differs = std::mismatch(left.rbegin(), left.rend(), right.rbegin(), right.rend());
  return static_cast<std::size_t>(differs.first - left.rbegin());
}

}  // namespace

std::size_t MaskedEdit::DigitPlaces(std::string_view mask) {
  return static_cast<std::size_t>(std::count(mask.begin(), mask.end(), kPlace));
}

template <class Change>
void MaskedEdit::Apply(Change change) {
  const std::string before = entered_.Text();
  change(entered_);
  if (entered_.Text() != before) Changed.Raise();
}

void MaskedEdit::SetMask(std::string mask) {
  if (mask_ == mask) return;
  mask_ = std::move(mask);
  SetText(entered_.Text());
  MaskChanged.Raise();
}

void MaskedEdit::SetText(std::string_view text) {
  Apply([accepted = Accepted(text)](CaretText& entered) {
    entered.Select(0, entered.Text().size());
    entered.Insert(accepted);
  });
}

MaskedEdit::Shown MaskedEdit::Show() const {
  const std::string& entered = ClipText();
  // What stands behind the last digit shows once every place is taken.
  const bool showsEnd = !entered.empty() && entered.size() >= DigitPlaces(mask_);
  Shown shown;
  const auto showNext = [&] {
    const char next = entered[shown.places.size()];
    shown.places.push_back(shown.text.size());
    shown.text += next;
  };
  for (const char place : mask_) {
    if (shown.places.size() == entered.size() && !showsEnd) break;
    place == kPlace ? showNext() : shown.text.push_back(place);
  }
  while (shown.places.size() < entered.size()) showNext();
  shown.places.push_back(entered.empty() ? 0 : shown.places.back() + 1);
  return shown;
}

std::size_t MaskedEdit::Shown::EnteredPosition(std::size_t byte) const {
  const auto place = std::lower_bound(places.begin(), std::prev(places.end()), byte);
  return static_cast<std::size_t>(place - places.begin());
}

std::size_t MaskedEdit::ShownPosition(std::size_t enteredPosition) const {
  const Shown shown = Show();
  return UnitsAt(shown.text, shown.places[enteredPosition]);
}

std::string MaskedEdit::Accepted(std::string_view text) const {
  std::string accepted(text);
  if (!mask_.empty()) std::erase_if(accepted, [](char character) { return !IsAsciiDigit(character); });
  return accepted;
}

/// The digits of a text that came past the keys, but for the mask's own where it reads like a piece of what
/// the mask shows.
std::string MaskedEdit::OwnDigits(std::string_view text) const {
  for (std::size_t start = 0; start < mask_.size(); ++start) {
    if (auto digits = ReadByMask(start, text)) return *std::move(digits);
  }
  return Accepted(text);
}

std::optional<std::string> MaskedEdit::ReadByMask(std::size_t start, std::string_view text) const {
  std::string digits;
  bool hasSeparator = false;
  std::size_t place = start;
  for (const char character : text) {
    const char expected = place < mask_.size() ? mask_[place] : kPlace;
    if (expected == kPlace ? !IsAsciiDigit(character) : character != expected) return std::nullopt;
    if (expected == kPlace) digits += character;
    hasSeparator = hasSeparator || !IsAsciiDigit(character);
    ++place;
  }
  // Digits alone are the user's, unless they are all that the mask shows.
  const bool isWhole = start == 0 && place >= mask_.size();
  if (!hasSeparator && !isWhole) return std::nullopt;
  return digits;
}

void MaskedEdit::Select(std::size_t shownAnchor, std::size_t shownCaret) {
  if (!Usable()) return;
  const Shown shown = Show();
  entered_.Select(shown.EnteredPosition(ByteAt(shown.text, shownAnchor)),
                  shown.EnteredPosition(ByteAt(shown.text, shownCaret)));
}

void MaskedEdit::MoveLeft() {
  if (Usable()) entered_.MoveLeft();
}

void MaskedEdit::MoveRight() {
  if (Usable()) entered_.MoveRight();
}

void MaskedEdit::Type(std::string_view keys) {
  const std::string accepted = Accepted(OneLine(keys));
  if (Usable() && !accepted.empty()) Apply([&](CaretText& entered) { entered.Insert(accepted); });
}

void MaskedEdit::Backspace() {
  if (Usable()) Apply([](CaretText& entered) { entered.DeleteBack(); });
}

void MaskedEdit::Delete() {
  if (Usable()) Apply([](CaretText& entered) { entered.DeleteForward(); });
}

void MaskedEdit::Paste(std::string_view text) {
  if (Usable())
    Apply([arrives = OwnDigits(OneLine(Trimmed(text)))](CaretText& entered) { entered.Insert(arrives); });
}

void MaskedEdit::Edit(std::string_view text, std::size_t caret) {
  if (!Usable()) return;
  const std::string now = OneLine(text);
  const std::size_t place = now.size() - std::min(now.size(), text.size() - ByteAt(text, caret));
  if (mask_.empty()) {
    return Apply([&](CaretText& entered) {
      entered.SetText(now);
      entered.Select(place, place);
    });
  }
  const Shown before = Show();
  // The edit ended at the caret: what stands behind it is as it was.
  const std::size_t behind = LengthOfCommonEnd(before.text, std::string_view(now).substr(place));
  const std::size_t most = std::min(before.text.size() - behind, place);
  const auto differs = std::mismatch(now.begin(), std::next(now.begin(), static_cast<std::ptrdiff_t>(most)),
                                     before.text.begin());
  const auto kept = static_cast<std::size_t>(differs.first - now.begin());
  Apply([&](CaretText& entered) {
    entered.Select(before.EnteredPosition(kept), before.EnteredPosition(before.text.size() - behind));
    entered.Insert(OwnDigits(std::string_view(now).substr(kept, now.size() - behind - kept)));
  });
}

void MaskedEdit::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
