#include "ui/masked_edit.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

namespace {

constexpr char kPlace = '#';

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
  const std::string accepted = Accepted(keys);
  if (Usable() && !accepted.empty()) Apply([&](CaretText& entered) { entered.Insert(accepted); });
}

void MaskedEdit::Backspace() {
  if (Usable()) Apply([](CaretText& entered) { entered.DeleteBack(); });
}

void MaskedEdit::Delete() {
  if (Usable()) Apply([](CaretText& entered) { entered.DeleteForward(); });
}

void MaskedEdit::Edit(std::string_view text) {
  if (!Usable()) return;
  const std::string now = OneLine(text);
  if (mask_.empty()) return Apply([&now](CaretText& entered) { entered.SetText(now); });
  const Shown before = Show();
  const auto [oldEnd, newEnd] = std::mismatch(before.text.begin(), before.text.end(), now.begin(), now.end());
  const auto kept = static_cast<std::size_t>(oldEnd - before.text.begin());
  const std::size_t most = std::min(before.text.size(), now.size()) - kept;
  std::size_t keptBehind = 0;
  while (keptBehind < most && before.text.rbegin()[static_cast<std::ptrdiff_t>(keptBehind)] ==
                                  now.rbegin()[static_cast<std::ptrdiff_t>(keptBehind)]) {
    ++keptBehind;
  }
  Apply([&](CaretText& entered) {
    entered.Select(before.EnteredPosition(kept), before.EnteredPosition(before.text.size() - keptBehind));
    entered.Insert(Accepted(std::string_view(now).substr(kept, now.size() - keptBehind - kept)));
  });
}

void MaskedEdit::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace kiv::ui
