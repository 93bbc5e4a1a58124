#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "ui/control.h"

namespace kiv::ui {

/// Like controls under one name, told apart by an index: `chkTDMA(0)`, `chkTDMA(1)`, ...
template <class Element, std::size_t Count>
class ControlArray {
 public:
  ControlArray(Container* parent, const std::string& name)
      : ControlArray(parent, name, std::make_index_sequence<Count>()) {}

  Element& operator[](std::size_t index) { return elements_.at(index); }
  const Element& operator[](std::size_t index) const { return elements_.at(index); }
  static constexpr std::size_t Size() { return Count; }

  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

 private:
  template <std::size_t... Index>
  ControlArray(Container* parent, const std::string& name, std::index_sequence<Index...>)
      : elements_{Element(parent, name + "(" + std::to_string(Index) + ")")...} {}

  std::array<Element, Count> elements_;
};

}  // namespace kiv::ui
