#pragma once

#include "vcsa/vcs_data.h"

namespace kiv::bench {

/// Gives a VCSA study cells with 6 antennas and 3 carriers each, a hundred cells to an ECP.
void FillVcsaStudy(CKivVcsData& data, int cells);

}  // namespace kiv::bench
