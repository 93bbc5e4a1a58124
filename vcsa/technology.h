#pragma once

#include <string>

#include "editor/dd_list_view.h"

/// What the tabs of a VCSA study have in common about cells.
namespace kiv {

/// Whether a cell can have CDMA carriers.
inline bool IsCdma(const CCell& cell) {
  return cell.TechType().find("CDMA") != std::string::npos;
}

}  // namespace kiv
