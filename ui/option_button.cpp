#include "ui/option_button.h"

#include "base/error.h"
#include "ui/control_visitor.h"

namespace kiv::ui {

bool OptionButton::Chosen() const {
  return set_ && set_->Index() == set_->IndexOf(*this);
}

bool OptionButton::IsTabStop() const {
  if (!set_ || set_->Index() != kNoSelection) return Chosen();
  return set_->IndexOf(*this) == 0;
}

void OptionButton::Click() {
  if (Usable() && set_) set_->SetIndex(set_->IndexOf(*this));
}

void OptionButton::Move(Direction direction) {
  if (!Usable() || !set_) return;
  OptionButton& next = set_->NextUsable(*this, direction);
  next.Click();
  if (next.Chosen()) next.SetFocus();
}

void OptionButton::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void OptionSet::SetIndex(int index) {
  if (index < kNoSelection || index >= static_cast<int>(options_.size())) {
    throw Error(ErrorNumber::InvalidArgument, "There is no option " + std::to_string(index) + ".");
  }
  if (index_ == index) return;
  index_ = index;
  for (OptionButton& option : options_) option.Changed.Raise();
  Changed.Raise();
}

void OptionSet::Adopt(std::span<OptionButton> options) {
  options_ = options;
  for (OptionButton& option : options_) option.set_ = this;
}

OptionButton& OptionSet::NextUsable(const OptionButton& option, OptionButton::Direction direction) const {
  const std::size_t count = options_.size();
  const std::size_t step = direction == OptionButton::Direction::Forward ? 1 : count - 1;
  auto next = static_cast<std::size_t>(IndexOf(option));
  do {
    next = (next + step) % count;
  } while (!options_[next].Usable());  // ends at the option itself, which is usable
  return options_[next];
}

}  // namespace kiv::ui
