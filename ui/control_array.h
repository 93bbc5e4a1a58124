#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "base/error.h"
#include "ui/control.h"

namespace kiv::ui {

/// Like controls under one name, told apart by an index: `chkTDMA(0)`, `chkTDMA(1)`, ...
template <class Element, std::size_t Count>
class ControlArray {
 public:
  ControlArray(Container* parent, const std::string& name)
      : ControlArray(parent, name, std::make_index_sequence<Count>()) {}

  /// Raises error 5 where no element is.
  Element& operator[](std::size_t index) { return elements_[Checked(index)]; }
  const Element& operator[](std::size_t index) const { return elements_[Checked(index)]; }
  static constexpr std::size_t Size() { return Count; }

  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

 private:
  static std::size_t Checked(std::size_t index) {
    if (index < Count) return index;
    throw Error(ErrorNumber::InvalidArgument, "There is no control " + std::to_string(index) + ".");
  }

  template <std::size_t... Index>
  ControlArray(Container* parent, const std::string& name, std::index_sequence<Index...>)
      : elements_{Element(parent, name + "(" + std::to_string(Index) + ")")...} {}

  std::array<Element, Count> elements_;
};

}  // namespace kiv::ui
