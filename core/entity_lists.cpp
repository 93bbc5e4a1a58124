#include "core/entity_lists.h"

#include <array>
#include <exception>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>

#include "core/conversions.h"
#include "core/fields.h"
#include "core/kiv_study_ctls.h"
#include "core/msql.h"
#include "core/stored_reader.h"
#include "host/constants.h"
#include "host/services.h"

namespace kiv::MSQL {

namespace {

constexpr std::string_view kCellList = "KIV_Cell_List";
constexpr std::string_view kAntennaList = "KIV_Antenna_List";
constexpr std::string_view kCarrierList = "KIV_Carrier_List";
constexpr std::string_view kEcpList = "KIV_Ecp_List";

// Columns of the list tables.
constexpr std::string_view kListId = "kiv_list_id";
constexpr std::string_view kInstanceId = "InstanceId";
constexpr std::string_view kSystemId = "SystemId";
constexpr std::string_view kEcpId = "EcpId";
constexpr std::string_view kCellId = "CellId";
constexpr std::string_view kAntennaId = "AntennaId";
constexpr std::string_view kCarrierId = "CarrierId";
constexpr std::string_view kSelected = "Selected";

// What a cell has, as listings name it.
constexpr std::string_view kAntennas = "Antennas";
constexpr std::string_view kCarriers = "Carriers";

// What tells an entity from the others of a list. Its instance number says nothing to users.
constexpr std::string_view kCellIdentity[] = {kInstanceId, kSystemId, kEcpId, kCellId};
constexpr std::string_view kEcpIdentity[] = {kInstanceId, kSystemId, kEcpId};
constexpr std::string_view kAntennaIdentity[] = {kInstanceId, kAntennaId};
constexpr std::string_view kCarrierIdentity[] = {kInstanceId, kCarrierId};

ListIdentity WithoutInstance(std::string_view list, std::span<const std::string_view> identity) {
  return {list, identity, identity.subspan(1)};
}

void DeleteList(std::string_view table, std::int32_t listId) {
  Database().ExecuteSql("Delete From " + std::string(table) + " Where KIV_List_ID=" + std::to_string(listId));
}

/// A row that cannot be written is reported; the caller goes on with the next one.
bool InsertRow(std::string_view table, std::initializer_list<host::Assignment> values) {
  try {
    host::Database& database = Database();
    database.ExecuteSql(sql::InsertStatement(database, table, std::span(values.begin(), values.size())));
    return true;
  } catch (const std::exception&) {
    host::TheErrorReporter().ReportError();
    return false;
  }
}

/// The current row of a result set; its fields are looked up by name once.
class RowReader {
 public:
  RowReader(const host::Recordset& rows, std::initializer_list<std::string_view> names) : rows_(rows) {
    std::size_t count = 0;
    for (const std::string_view name : names) indexes_.at(count++) = rows.FieldIndex(name);
  }
  Variant Value(std::size_t field) const { return rows_.FieldAt(indexes_[field]); }
  std::int32_t Number(std::size_t field) const { return ToInt32(Value(field)); }
  /// The number as decimal text, however the database delivers it.
  std::string NumberText(std::size_t field) const { return std::to_string(Number(field)); }

 private:
  const host::Recordset& rows_;
  std::array<int, 7> indexes_{};
};

/// Runs a query and gives each of its rows, with these fields in this order, to a function.
template <class TakeRow>
void ForEachRow(const std::string& sql, std::initializer_list<std::string_view> names,
                const TakeRow& takeRow) {
  const auto rows = OpenQuery(sql);
  if (!rows || rows->RecordCount() <= 0) return;
  const RowReader row(*rows, names);
  for (; !rows->EndOfFile(); rows->MoveNext()) takeRow(row);
}

std::string CellListQuery(std::string_view table, std::int32_t listId, const CCell& cell,
                          std::string_view orderBy) {
  return "SELECT * FROM " + std::string(table) + " WHERE KIV_List_Id = " + std::to_string(listId) +
         " AND CellId = " + std::to_string(cell.CellID()) + " ORDER BY " + std::string(orderBy);
}

/// The antennas or carriers of a cell, whose other numbers are the cell's.
StoredList StoredParts(std::string_view name, const AntennaCollection& parts, std::string_view column,
                       std::int32_t (CAntenna::*number)() const) {
  StoredList list{name, {}};
  list.entries.reserve(static_cast<std::size_t>(parts.Count()));
  for (const auto& part : parts) {
    std::vector<NamedValue>& fields = list.entries.emplace_back().fields;
    fields.reserve(3);  // a study may have ten thousand of them
    fields.push_back({kInstanceId, part->Instance_Id()});
    fields.push_back({column, (part.get()->*number)()});
    fields.push_back({kSelected, {}});
    fields.back().value = MKivStudyCtls::BoolToYN(part->Selected());
  }
  return list;
}

void ReadParts(StoredReader& reader, CCell& cell) {
  reader.List(kAntennas, [&cell](StoredReader& entry) {
    const std::int32_t instanceId = entry.Number(kInstanceId);
    const std::int32_t antennaId = entry.Number(kAntennaId);
    cell.AddAntenna(instanceId, cell.SystemID(), cell.EcpID(), cell.CellID(), antennaId,
                    entry.YesNo(kSelected));
    return Required(cell.Antennas()).Count();
  });
  reader.List(kCarriers, [&cell](StoredReader& entry) {
    const std::int32_t instanceId = entry.Number(kInstanceId);
    const std::int32_t carrierId = entry.Number(kCarrierId);
    cell.AddCarrier(instanceId, std::to_string(cell.SystemID()), std::to_string(cell.EcpID()),
                    std::to_string(cell.CellID()), std::to_string(carrierId), entry.YesNo(kSelected));
    return Required(cell.Carriers()).Count();
  });
}

}  // namespace

void DeleteAntennaList(std::int32_t listId) {
  DeleteList(kAntennaList, listId);
}

void DeleteCarrierList(std::int32_t listId) {
  DeleteList(kCarrierList, listId);
}

void DeleteCellList(std::int32_t listId) {
  DeleteAntennaList(listId);
  DeleteCarrierList(listId);
  DeleteList(kCellList, listId);
}

void DeleteEcpList(std::int32_t listId) {
  DeleteList(kEcpList, listId);
}

bool InsertCellRow(std::int32_t listId, std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                   std::int32_t cellId) {
  return InsertRow(kCellList, {{kListId, listId},
                               {kInstanceId, instanceId},
                               {kSystemId, systemId},
                               {kEcpId, ecpId},
                               {kCellId, cellId}});
}

bool InsertAntennaRow(std::int32_t listId, std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                      std::int32_t cellId, std::int32_t antennaId, const std::string& selected) {
  return InsertRow(kAntennaList, {{kListId, listId},
                                  {kInstanceId, instanceId},
                                  {kSystemId, systemId},
                                  {kEcpId, ecpId},
                                  {kCellId, cellId},
                                  {kAntennaId, antennaId},
                                  {kSelected, selected}});
}

bool InsertCarrierRow(std::int32_t listId, std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                      std::int32_t cellId, std::int32_t carrierId, const std::string& selected) {
  return InsertRow(kCarrierList, {{kListId, listId},
                                  {kInstanceId, instanceId},
                                  {kSystemId, systemId},
                                  {kEcpId, ecpId},
                                  {kCellId, cellId},
                                  {kCarrierId, carrierId},
                                  {kSelected, selected}});
}

bool InsertEcpRow(std::int32_t listId, std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId) {
  return InsertRow(kEcpList,
                   {{kListId, listId}, {kInstanceId, instanceId}, {kSystemId, systemId}, {kEcpId, ecpId}});
}

void LoadCellList(std::int32_t listId, const CellTaker& addCell) {
  ForEachRow("SELECT * FROM " + std::string(kCellList) + " WHERE KIV_List_Id = " + std::to_string(listId) +
                 " ORDER BY SystemId, EcpId, CellId",
             {kInstanceId, kSystemId, kEcpId, kCellId}, [&addCell](const RowReader& row) {
               addCell(row.Number(0), row.Number(1), row.Number(2), row.Number(3));
             });
}

void LoadEcpList(std::int32_t listId, const EcpTaker& addEcp) {
  ForEachRow("SELECT * FROM " + std::string(kEcpList) + " WHERE kiv_list_id = " + std::to_string(listId),
             {kInstanceId, kSystemId, kEcpId},
             [&addEcp](const RowReader& row) { addEcp(row.Number(0), row.Number(1), row.Number(2)); });
}

namespace {

/// Asks for the antennas or carriers of each cell and gives their rows to a function.
template <class TakeRow>
void LoadCellLists(std::string_view table, std::int32_t listId, const EntityCollection& cells,
                   std::string_view number, const TakeRow& takeRow) {
  const auto query = [&](const std::shared_ptr<CEntity>& cell) {
    return CellListQuery(table, listId, AsCell(cell), number);
  };
  Announcer ahead([&, next = cells.begin()](std::vector<host::Announcement>& questions) mutable {
    if (next == cells.end()) return false;
    questions.push_back({query(*next)});
    ++next;
    return true;
  });
  for (const auto& entity : cells) {
    ahead.BeginRound();
    ForEachRow(query(entity), {kInstanceId, kSystemId, kEcpId, kCellId, number, kSelected},
               [&](const RowReader& row) { takeRow(AsCell(entity), row); });
  }
}

}  // namespace

void LoadAntennaList(std::int32_t listId, const EntityCollection& cells) {
  const host::Database& database = Database();
  LoadCellLists(kAntennaList, listId, cells, kAntennaId, [&database](CCell& cell, const RowReader& row) {
    cell.AddAntenna(row.Number(0), row.Number(1), row.Number(2), row.Number(3), row.Number(4),
                    database.FieldToBoolean(row.Value(5)));
  });
}

void LoadCarrierList(std::int32_t listId, const EntityCollection& cells) {
  const host::Database& database = Database();
  LoadCellLists(kCarrierList, listId, cells, kCarrierId, [&database](CCell& cell, const RowReader& row) {
    cell.AddCarrier(row.Number(0), row.NumberText(1), row.NumberText(2), row.NumberText(3), row.NumberText(4),
                    database.FieldToBoolean(row.Value(5)));
  });
}

std::int32_t GetParentInstanceId(const std::string& fullKey) {
  const auto rows =
      OpenQuery("select * from vzn_instance_context where context_id=2 and fullkey='" + fullKey + "'");
  if (!rows || rows->RecordCount() <= 0) return 0;
  const std::int32_t instanceId = ToInt32(rows->Field("ParentInstance_Id"));
  rows->Close();
  return instanceId;
}

std::string FindCellTech(std::int32_t instanceId) {
  return Database().CallStoredFunction(host::kFindCellTech, std::to_string(instanceId));
}

namespace {

std::string ConfigAntennasQuery(const CCell& cell) {
  return "SELECT Instance_Id, rfpi FROM luc_cfg_ceqsu2 WHERE dsetup='y' AND system_id=" +
         std::to_string(cell.SystemID()) + " AND ecp=" + std::to_string(cell.EcpID()) +
         " AND cell=" + std::to_string(cell.CellID()) + " ORDER BY rfpi";
}

std::string ConfigCarriersQuery(const CCell& cell) {
  return "SELECT cdma_carr_id FROM luc_cfg_cdma_car_chans WHERE system_id=" +
         std::to_string(cell.SystemID()) + " AND ecp=" + std::to_string(cell.EcpID()) +
         " AND cell=" + std::to_string(cell.CellID()) + " ORDER BY keyid";
}

std::string CgsaCarriersQuery(const CCell& cell) {
  return "SELECT a.carrier_no FROM luc_cfg_cgsa_cdma_cars a, luc_cfg_cgsa_cell_list b"
         " WHERE a.system_id = b.system_id AND a.ecp=b.ecp AND a.cgsano=b.cgsano AND b.cell=" +
         std::to_string(cell.CellID()) + " AND b.system_id=" + std::to_string(cell.SystemID()) +
         " AND b.ecp=" + std::to_string(cell.EcpID());
}

}  // namespace

void AddConfigQuestions(const CCell& cell, std::vector<host::Announcement>& questions) {
  questions.push_back({host::kFindCellTech, std::to_string(cell.InstanceID())});
  questions.push_back({ConfigAntennasQuery(cell)});
  questions.push_back({ConfigCarriersQuery(cell)});
  questions.push_back({CgsaCarriersQuery(cell)});
}

void LookupConfigAntennas(CCell& cell) {
  ForEachRow(ConfigAntennasQuery(cell), {"Instance_Id", "rfpi"}, [&cell](const RowReader& row) {
    cell.AddAntenna(row.Number(0), cell.SystemID(), cell.EcpID(), cell.CellID(), row.Number(1), false);
  });
}

void LookupConfigCarriers(CCell& cell) {
  const std::string systemId = std::to_string(cell.SystemID());
  const std::string ecpId = std::to_string(cell.EcpID());
  const std::string cellId = std::to_string(cell.CellID());
  const auto addCarrier = [&](const RowReader& row) {
    cell.AddCarrier(0, systemId, ecpId, cellId, row.NumberText(0), false);
  };
  ForEachRow(ConfigCarriersQuery(cell), {"cdma_carr_id"}, addCarrier);
  if (Required(cell.Carriers()).Count() > 0) return;
  // A cell without channels of its own has the carriers of its CGSA.
  ForEachRow(CgsaCarriersQuery(cell), {"carrier_no"}, addCarrier);
}

ListIdentity CellIdentity(std::string_view list) {
  return WithoutInstance(list, kCellIdentity);
}

ListIdentity EcpIdentity(std::string_view list) {
  return WithoutInstance(list, kEcpIdentity);
}

ListIdentity AntennaIdentity() {
  return WithoutInstance(kAntennas, kAntennaIdentity);
}

ListIdentity CarrierIdentity() {
  return WithoutInstance(kCarriers, kCarrierIdentity);
}

StoredList StoredCells(std::string_view name, const EntityCollection& cells, CellParts parts) {
  StoredList list{name, {}};
  list.entries.reserve(static_cast<std::size_t>(cells.Count()));
  for (const auto& entity : cells) {
    const CCell& cell = AsCell(entity);
    StoredEntry& entry = list.entries.emplace_back();
    entry.fields = {{kInstanceId, cell.InstanceID()},
                    {kSystemId, cell.SystemID()},
                    {kEcpId, cell.EcpID()},
                    {kCellId, cell.CellID()}};
    if (parts == CellParts::None) continue;
    entry.lists.push_back(
        StoredParts(kAntennas, Required(cell.Antennas()), kAntennaId, &CAntenna::AntennaID));
    entry.lists.push_back(
        StoredParts(kCarriers, Required(cell.Carriers()), kCarrierId, &CAntenna::CarrierID));
  }
  return list;
}

StoredList StoredEcps(std::string_view name, const EntityCollection& ecps) {
  StoredList list{name, {}};
  for (const auto& entity : ecps) {
    const CEcp& ecp = AsEcp(entity);
    StoredEntry& entry = list.entries.emplace_back();
    entry.fields = {{kInstanceId, ecp.InstanceID()}, {kSystemId, ecp.SystemID()}, {kEcpId, ecp.EcpID()}};
  }
  return list;
}

void ReadCells(StoredReader& reader, std::string_view name, std::int32_t studyId, EntityCollection& cells,
               CellParts parts) {
  reader.List(name, [&](StoredReader& entry) {
    const std::int32_t instanceId = entry.Number(kInstanceId);
    const std::int32_t systemId = entry.Number(kSystemId);
    const std::int32_t ecpId = entry.Number(kEcpId);
    auto cell = MakeCell(studyId, instanceId, systemId, ecpId, entry.Number(kCellId));
    if (parts == CellParts::AntennasAndCarriers) ReadParts(entry, *cell);
    cells.Add(std::move(cell));
    return cells.Count();
  });
}

void ReadEcps(StoredReader& reader, std::string_view name, std::int32_t studyId, EntityCollection& ecps) {
  reader.List(name, [&](StoredReader& entry) {
    const std::int32_t instanceId = entry.Number(kInstanceId);
    const std::int32_t systemId = entry.Number(kSystemId);
    ecps.Add(MakeEcp(studyId, instanceId, systemId, entry.Number(kEcpId)));
    return ecps.Count();
  });
}

}  // namespace kiv::MSQL
