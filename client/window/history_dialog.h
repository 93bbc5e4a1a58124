#pragma once

#include <cstdint>
#include <vector>

#include "client/program.h"

class QWidget;

namespace kiv::client {

/// Shows who changed a study, when and what, compares two revisions, and lets the user bring one back.
/// Returns whether that was done. Raises StoreError when there is no history of the study.
bool ShowHistory(Program& program, std::int32_t study, QWidget* parent);

/// Shows the studies that were deleted and lets the user bring them back; returns the numbers of those.
std::vector<std::int32_t> ShowDeletedStudies(Program& program, QWidget* parent);

}  // namespace kiv::client
