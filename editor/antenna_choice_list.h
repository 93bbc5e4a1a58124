#pragma once

#include <cstddef>
#include <string>

#include "editor/dd_list_view.h"

namespace kiv {

/// A list in which the user chooses among the antennas or carriers of cells by their check boxes. A cell has
/// at most one chosen: choosing another moves the choice. Nothing can be dropped on it.
class AntennaChoiceList : public XDDListView {
 public:
  AntennaChoiceList(ui::Container* parent, std::string name);

 private:
  void MoveChoice(std::size_t row);
};

}  // namespace kiv
