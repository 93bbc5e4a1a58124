#pragma once

#include <cstddef>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::client {

/// Lines with the same number of cells, which are printed so that each column begins at the same place. The
/// texts may be anything, and there may be very many.
class TextTable {
 public:
  explicit TextTable(std::size_t columns) : widths_(columns) {}

  /// One text for each column.
  void AddLine(std::initializer_list<std::string_view> texts);

  void Print(std::ostream& out) const;

 private:
  /// Whole lines, one after the other; a tab, which no cell can have, ends each cell.
  struct Block {
    std::string cells;
    std::size_t lines = 0;
    bool plain = true;  ///< every byte takes one column
  };
  void Print(const Block& block, std::string& to) const;

  std::vector<Block> blocks_;  ///< many, so that growing copies nothing
  std::vector<std::size_t> widths_;
};

}  // namespace kiv::client
