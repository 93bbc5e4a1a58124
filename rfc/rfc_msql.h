#pragma once

#include <cstdint>

#include "rfc/rfc_data.h"

/// Where RF call trace studies are stored: KIV_RfcStudy, KIV_RfcDnList and the entity lists.
namespace kiv::MSQL {

void LoadRfcData(std::int32_t id, CKivRfcData& record);
/// Both write routines report their own failures; false when the row was not written.
bool InsertRfcData(const CKivRfcData& record);
bool UpdateRfcData(const CKivRfcData& record);

/// Give the entities and the DNs of a study to the record. A failure is raised.
void LoadRfcCellList(std::int32_t listId, CKivRfcData& record);
void LoadRfcEcpList(std::int32_t listId, CKivRfcData& record);
void LoadRfcDnList(std::int32_t id, CKivRfcData& record);

/// A failure is raised.
void DeleteRfcDnList(std::int32_t id);
/// Writes a DN of a study; a failure is reported, and false returned.
bool InsertRfcDn(std::int32_t id, const CDn& dn);

/// Fills the row with the features of an instance; false, and an empty row, when there are none on record. A
/// failure is raised.
bool LookupFaf(std::int32_t instanceId, FafRow& faf);

}  // namespace kiv::MSQL
