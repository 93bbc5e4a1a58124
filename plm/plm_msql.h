#pragma once

#include <cstdint>

#include "plm/plm_data.h"

/// The statements on the tables of PLM studies. But for the load of the study's own row, each raises what the
/// database raises.
namespace kiv::MSQL {

/// Loads the study's row. A failure is reported and leaves the record as it was.
void LoadPlmData(std::int32_t id, CKivPlmData& record);
/// Adds the stored modes with their channels, unchecked. A row without a mode number is left out.
void LoadPlmModes(std::int32_t id, CKivPlmData& record);
/// Adds the stored channels of a mode.
void LoadPlmChannels(CKivPlmMode& mode);

void InsertPlmData(const CKivPlmData& record);
void InsertPlmMode(const CKivPlmMode& mode);
void InsertPlmChannels(const CKivPlmMode& mode);

void DeletePlmChannels(std::int32_t id);
void DeletePlmData(std::int32_t id);

}  // namespace kiv::MSQL
