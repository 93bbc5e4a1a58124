#pragma once

#include <cstddef>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::client {

/// Lines with the same number of cells, which are printed so that each column begins at the same place. The
/// texts may be anything. There may be very many: after some thousand lines those so far are printed, and
/// columns become only wider from there on.
class TextTable {
 public:
  TextTable(std::size_t columns, std::ostream& out) : out_(out), widths_(columns) {}

  /// One text for each column.
  void AddLine(std::initializer_list<std::string_view> texts);
  /// Prints the lines that wait.
  void Print();

 private:
  std::ostream& out_;
  std::vector<std::size_t> widths_;
  std::string cells_;  ///< of the lines that wait; a tab, which no cell can have, ends each
  std::size_t lines_ = 0;
  bool plain_ = true;  ///< every byte of them takes one column
  std::string text_;
};

}  // namespace kiv::client
