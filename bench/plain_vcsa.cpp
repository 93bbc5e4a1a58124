#include "plain_vcsa.h"

#include <sqlite3.h>

#include <cstdio>

#include "plain_sqlite.h"

namespace kiv::bench {

namespace {

/// Columns: list, instance, system, ECP, cell, number, selected.
void LoadEntries(sqlite3* database, const char* table, const char* number, int id, int cell,
                 std::vector<PlainAntenna>& entries) {
  char sql[256];
  std::snprintf(sql, sizeof sql, "SELECT * FROM %s WHERE KIV_List_Id = %d AND CellId = %d ORDER BY %s", table,
                id, cell, number);
  Query(database, sql, [&](sqlite3_stmt* row) {
    const auto* selected = reinterpret_cast<const char*>(sqlite3_column_text(row, 6));
    entries.push_back({sqlite3_column_int(row, 1), sqlite3_column_int(row, 2), sqlite3_column_int(row, 3),
                       sqlite3_column_int(row, 4), sqlite3_column_int(row, 5), selected[0] == 'Y'});
  });
}

void InsertEntries(sqlite3* database, const char* table, const char* number, int id,
                   const std::vector<PlainAntenna>& entries) {
  char sql[256];
  for (const PlainAntenna& entry : entries) {
    std::snprintf(
        sql, sizeof sql,
        "INSERT INTO %s (kiv_list_id, InstanceId, SystemId, EcpId, CellId, %s, Selected) VALUES (%d, %d, "
        "%d, %d, %d, %d, '%c')",
        table, number, id, entry.instance, entry.system, entry.ecp, entry.cell, entry.number,
        entry.selected ? 'Y' : 'N');
    Run(database, sql);
  }
}

}  // namespace

void LoadPlainStudy(sqlite3* database, int id, PlainVcsaStudy& study) {
  char sql[256];
  study.id = id;
  std::snprintf(sql, sizeof sql, "SELECT * FROM KIV_VcsStudy WHERE Id = %d", id);
  Query(database, sql, [&](sqlite3_stmt* row) {
    for (int i = 0; i < 18; ++i) {
      std::snprintf(study.texts[i], sizeof study.texts[i], "%s",
                    reinterpret_cast<const char*>(sqlite3_column_text(row, i + 1)));
    }
  });
  std::snprintf(sql, sizeof sql,
                "SELECT * FROM KIV_Cell_List WHERE KIV_List_Id = %d ORDER BY SystemId, EcpId, CellId", id);
  Query(database, sql, [&](sqlite3_stmt* row) {
    study.cells.push_back({sqlite3_column_int(row, 1),
                           sqlite3_column_int(row, 2),
                           sqlite3_column_int(row, 3),
                           sqlite3_column_int(row, 4),
                           {},
                           {}});
  });
  for (PlainCell& cell : study.cells) {
    LoadEntries(database, "KIV_Antenna_List", "AntennaId", id, cell.cell, cell.antennas);
  }
  for (PlainCell& cell : study.cells) {
    LoadEntries(database, "KIV_Carrier_List", "CarrierId", id, cell.cell, cell.carriers);
  }
}

void SavePlainStudy(sqlite3* database, const PlainVcsaStudy& study) {
  static const char* const kColumns[18] = {"Path",     "DataFile",         "EventA",     "EventB", "EventC",
                                           "EventD",   "EventE",           "EventF",     "EventG", "EventH",
                                           "EventI",   "EventJ",           "EventK",     "EventL", "EventM",
                                           "SingleDn", "DirectionalSetup", "CarrierData"};
  char sql[4096];
  Run(database, "BEGIN IMMEDIATE");
  int length = std::snprintf(sql, sizeof sql, "UPDATE KIV_VcsStudy SET ");
  for (int i = 0; i < 18; ++i) {
    length += std::snprintf(sql + length, sizeof sql - static_cast<std::size_t>(length), "%s%s = '%s'",
                            i == 0 ? "" : ", ", kColumns[i], study.texts[i]);
  }
  std::snprintf(sql + length, sizeof sql - static_cast<std::size_t>(length), " WHERE Id = %d", study.id);
  Run(database, sql);
  for (const char* table : {"KIV_Antenna_List", "KIV_Carrier_List", "KIV_Cell_List"}) {
    std::snprintf(sql, sizeof sql, "Delete From %s Where KIV_List_ID=%d", table, study.id);
    Run(database, sql);
  }
  for (const PlainCell& cell : study.cells) {
    std::snprintf(
        sql, sizeof sql,
        "INSERT INTO KIV_Cell_List (kiv_list_id, InstanceId, SystemId, EcpId, CellId) VALUES (%d, %d, %d, "
        "%d, %d)",
        study.id, cell.instance, cell.system, cell.ecp, cell.cell);
    Run(database, sql);
    InsertEntries(database, "KIV_Antenna_List", "AntennaId", study.id, cell.antennas);
    InsertEntries(database, "KIV_Carrier_List", "CarrierId", study.id, cell.carriers);
  }
  Run(database, "COMMIT");
}

}  // namespace kiv::bench
