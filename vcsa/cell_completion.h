#pragma once

#include "vcsa/vcs_data.h"

namespace kiv {

/// Adds what the configuration knows of a cell: its technology, its antennas, and the carriers of a CDMA
/// cell. Choices that are there already stay.
void CompleteCell(const CKivVcsData& study, CCell& cell);

/// Completes the cells of a stored study. The stored lists are read by cell number alone, so a cell may have
/// got those of its namesake on another ECP; it is made anew with its own only.
void CompleteStoredCells(CKivVcsData& study);

}  // namespace kiv
