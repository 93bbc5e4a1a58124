#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/entities.h"
#include "core/sub_record.h"
#include "host/database.h"

/// The entity selections of studies in the four list tables, and the look-ups in the network configuration.
/// A list's identifier is its study's. Deletes, loads and look-ups raise what the database raises; an insert
/// reports its failure and returns false, so that the rows behind it are still tried.
namespace kiv::MSQL {

void DeleteAntennaList(std::int32_t listId);
void DeleteCarrierList(std::int32_t listId);
/// Deletes the antennas and carriers of the list as well.
void DeleteCellList(std::int32_t listId);
void DeleteEcpList(std::int32_t listId);

bool InsertCellRow(std::int32_t listId, std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                   std::int32_t cellId);
bool InsertAntennaRow(std::int32_t listId, std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                      std::int32_t cellId, std::int32_t antennaId, const std::string& selected);
bool InsertCarrierRow(std::int32_t listId, std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                      std::int32_t cellId, std::int32_t carrierId, const std::string& selected);
bool InsertEcpRow(std::int32_t listId, std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId);

/// Takes the instance, system, ECP and cell numbers of one stored row.
using CellTaker = std::function<void(std::int32_t, std::int32_t, std::int32_t, std::int32_t)>;
/// Takes the instance, system and ECP numbers of one stored row.
using EcpTaker = std::function<void(std::int32_t, std::int32_t, std::int32_t)>;

/// Gives the rows of a list to a record, cells by system, ECP and cell number, ECPs in the database's order.
void LoadCellList(std::int32_t listId, const CellTaker& addCell);
void LoadEcpList(std::int32_t listId, const EcpTaker& addEcp);

/// Fill each cell's antennas or carriers from the rows with its cell number, by number.
void LoadAntennaList(std::int32_t listId, const EntityCollection& cells);
void LoadCarrierList(std::int32_t listId, const EntityCollection& cells);

/// Instance of the entity that holds the one with these numbers on its path, joined with hyphens; 0 when the
/// configuration has none.
std::int32_t GetParentInstanceId(const std::string& fullKey);

/// Technology of a cell.
std::string FindCellTech(std::int32_t instanceId);

/// Adds what FindCellTech and the two below may ask for a cell, in their order.
void AddConfigQuestions(const CCell& cell, std::vector<host::Announcement>& questions);
/// Add the cell's configured antennas and carriers, none of them selected.
void LookupConfigAntennas(CCell& cell);
void LookupConfigCarriers(CCell& cell);

/// Which lists of its own a cell has in a study.
enum class CellParts { None, AntennasAndCarriers };

/// Cells or ECPs as they are stored: the fields of each row, and what belongs to a cell.
StoredList StoredCells(std::string_view name, const EntityCollection& cells, CellParts parts);
StoredList StoredEcps(std::string_view name, const EntityCollection& ecps);
/// How their entries are told apart, and the antennas and carriers of a cell.
ListIdentity CellIdentity(std::string_view list);
ListIdentity EcpIdentity(std::string_view list);
ListIdentity AntennaIdentity();
ListIdentity CarrierIdentity();
/// Put such a list back into the collection of a study.
void ReadCells(StoredReader& reader, std::string_view name, std::int32_t studyId, EntityCollection& cells,
               CellParts parts);
void ReadEcps(StoredReader& reader, std::string_view name, std::int32_t studyId, EntityCollection& ecps);

}  // namespace kiv::MSQL
