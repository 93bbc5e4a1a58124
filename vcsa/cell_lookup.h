#pragma once

#include "core/entities.h"
#include "vcsa/vcs_data.h"

/// What the network configuration knows of the cells of a VCSA study.
namespace kiv {

/// Whether a cell can have CDMA carriers.
bool IsCdma(const CCell& cell);

/// Adds what the configuration has of a cell: its technology, antennas and carriers. Choices that are there
/// already stay. A database failure is raised and may leave some of it added.
void CompleteCell(const CKivVcsData& data, CCell& cell);

/// The stored cells, each with its own antennas and carriers only and completed; the stored ones stay as they
/// are. A cell that cannot be completed is there as it is stored; the first failure is reported.
std::shared_ptr<EntityCollection> CompletedCells(const CKivVcsData& data);

}  // namespace kiv
