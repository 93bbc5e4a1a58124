#include "ui/control.h"

#include <algorithm>
#include <utility>

namespace kiv::ui {

namespace {

char LowerCase(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool SameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return LowerCase(a) == LowerCase(b); });
}

}  // namespace

Control::Control(Container* parent, std::string name) : parent_(parent), name_(std::move(name)) {
  if (parent_) parent_->children_.push_back(this);
}

Control::~Control() {
  if (!parent_) return;
  if (HasFocus()) Outermost()->focused_ = nullptr;
  std::erase(parent_->children_, this);
}

bool Control::Enabled() const {
  return enabled_ && (!parent_ || parent_->Enabled());
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  RaiseAppearanceChanged();
  DropFocusOutOfReach();
}

bool Control::Visible() const {
  return visible_ && (!parent_ || parent_->Visible());
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  RaiseAppearanceChanged();
  DropFocusOutOfReach();
}

void Control::SetFocus() {
  if (!parent_ || !Usable()) return;
  Container& outermost = *Outermost();
  if (outermost.focused_ != this) {
    if (outermost.focused_) outermost.focused_->LoseFocus();
    outermost.focused_ = this;
  }
  outermost.FocusChanged.Raise(*this);
}

bool Control::HasFocus() const {
  return parent_ && Outermost()->focused_ == this;
}

void Control::LoseFocus(FocusTo to) {
  if (!HasFocus() || to != FocusTo::AnotherControl) return;
  Outermost()->focused_ = nullptr;
  FocusLost.Raise();
}

WindowHandle Control::Window() {
  WindowHandle window = kNoWindow;
  if (Container* outermost = Outermost()) outermost->WindowWanted.Raise(window);
  return window;
}

/// The container around all others; null for itself.
Container* Control::Outermost() const {
  Container* container = parent_;
  while (container && container->parent_) container = container->parent_;
  return container;
}

void Control::DropFocusOutOfReach() {
  const auto* container = dynamic_cast<const Container*>(this);
  Control* focused = container ? container->FocusedControl() : HasFocus() ? this : nullptr;
  if (focused && !focused->Usable()) focused->LoseFocus();
}

void Control::RaiseAppearanceChanged() {
  AppearanceChanged.Raise();
}

Control* Container::FindControl(std::string_view name) const {
  const auto direct = std::find_if(children_.begin(), children_.end(),
                                   [name](const Control* child) { return SameName(child->Name(), name); });
  if (direct != children_.end()) return *direct;
  for (const Control* child : children_) {
    if (const auto* container = dynamic_cast<const Container*>(child)) {
      if (Control* found = container->FindControl(name)) return found;
    }
  }
  return nullptr;
}

void Container::RaiseAppearanceChanged() {
  Control::RaiseAppearanceChanged();
  for (Control* child : children_) child->RaiseAppearanceChanged();
}

Control* Container::FocusedControl() const {
  const Container* outermost = Outermost();
  return outermost ? outermost->focused_ : focused_;
}

}  // namespace kiv::ui
