#include "ui/control.h"

#include <algorithm>
#include <utility>

namespace kiv::ui {

Control::Control(Container* parent, std::string name) : parent_(parent), name_(std::move(name)) {
  if (parent_) parent_->children_.push_back(this);
}

Control::~Control() {
  if (!parent_) return;
  Container& outermost = parent_->Outermost();
  if (outermost.focused_ == this) outermost.focused_ = nullptr;
  std::erase(parent_->children_, this);
}

bool Control::Enabled() const {
  return enabled_ && (!parent_ || parent_->Enabled());
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  RaiseAppearanceChanged();
}

bool Control::Visible() const {
  return visible_ && (!parent_ || parent_->Visible());
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  RaiseAppearanceChanged();
}

void Control::SetFocus() {
  if (!parent_ || !Usable()) return;
  Container& outermost = parent_->Outermost();
  if (outermost.focused_ != this) {
    if (outermost.focused_) outermost.focused_->LoseFocus();
    outermost.focused_ = this;
  }
  outermost.FocusChanged.Raise(*this);
}

bool Control::HasFocus() const {
  return parent_ && parent_->Outermost().focused_ == this;
}

void Control::LoseFocus() {
  if (!HasFocus()) return;
  parent_->Outermost().focused_ = nullptr;
  FocusLost.Raise();
}

void Control::RaiseAppearanceChanged() {
  AppearanceChanged.Raise();
}

Control* Container::FindControl(std::string_view name) const {
  const auto direct = std::find_if(children_.begin(), children_.end(),
                                   [name](const Control* child) { return child->Name() == name; });
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

const Container& Container::Outermost() const {
  const Container* container = this;
  while (container->Parent()) container = container->Parent();
  return *container;
}

Container& Container::Outermost() {
  return const_cast<Container&>(std::as_const(*this).Outermost());
}

}  // namespace kiv::ui
