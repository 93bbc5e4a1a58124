#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "ui/combo_box.h"
#include "ui/control.h"
#include "ui/control_array.h"

namespace kiv::ui {

class OptionSet;

/// One of several choices, of which at most one is chosen.
class OptionButton : public Captioned<Control> {
 public:
  using Captioned::Captioned;

  bool Chosen() const;
  /// Whether the Tab key stops here: at the chosen option of a set, or at its first one.
  bool IsTabStop() const;

  // What a user does. An option that is not usable ignores it.
  void Click();
  /// Moves the choice and the focus to the next usable option, around the ends, as the arrow keys do. The
  /// focus stays with whoever has it when the choice is taken back.
  enum class Direction { Back, Forward };
  void Move(Direction direction);

  void Accept(ControlVisitor& visitor) override;

  /// Raised when another option of the set was chosen.
  Signal<> Changed;

 private:
  friend class OptionSet;

  OptionSet* set_ = nullptr;
};

/// Options of which at most one is chosen.
class OptionSet {
 public:
  OptionSet() = default;
  OptionSet(const OptionSet&) = delete;
  OptionSet& operator=(const OptionSet&) = delete;

  std::span<OptionButton> Options() const { return options_; }
  /// The chosen option; kNoSelection when none is chosen.
  int Index() const { return index_; }
  /// Raises error 5 for an index that is neither an option's nor kNoSelection.
  void SetIndex(int index);

  /// Raised when another option is chosen.
  Signal<> Changed;

 protected:
  ~OptionSet() = default;
  void Adopt(std::span<OptionButton> options);

 private:
  friend class OptionButton;

  int IndexOf(const OptionButton& option) const { return static_cast<int>(&option - options_.data()); }
  OptionButton& NextUsable(const OptionButton& option, OptionButton::Direction direction) const;

  std::span<OptionButton> options_;
  int index_ = kNoSelection;
};

/// A fixed number of options under one name, told apart by an index.
template <std::size_t Count>
class OptionGroup : public OptionSet {
 public:
  OptionGroup(Container* parent, const std::string& name) : options_(parent, name) {
    Adopt({options_.begin(), options_.end()});
  }

  OptionButton& operator[](std::size_t index) { return options_[index]; }
  static constexpr std::size_t Size() { return Count; }

 private:
  ControlArray<OptionButton, Count> options_;
};

}  // namespace kiv::ui
