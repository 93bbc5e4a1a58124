#include "plain_plm.h"

#include <sqlite3.h>

#include <cstddef>
#include <cstdio>
#include <ctime>

#include "plain_sqlite.h"

namespace kiv::bench {

namespace {

/// Where the numbers and the texts of a mode stand in its row.
constexpr int kNumberColumns[9] = {1, 2, 3, 4, 6, 7, 8, 11, 12};
constexpr int kTextColumns[5] = {5, 9, 10, 13, 14};

template <std::size_t Size>
void CopyText(char (&text)[Size], sqlite3_stmt* row, int column) {
  std::snprintf(text, Size, "%s", reinterpret_cast<const char*>(sqlite3_column_text(row, column)));
}

int NumberAt(sqlite3_stmt* row, int column) {
  return sqlite3_column_type(row, column) == SQLITE_NULL ? -1 : sqlite3_column_int(row, column);
}

struct SqlNumber {
  explicit SqlNumber(int number) {
    if (number == -1) {
      std::snprintf(text, sizeof text, "NULL");
    } else {
      std::snprintf(text, sizeof text, "%d", number);
    }
  }
  char text[16];
};

void InsertMode(sqlite3* database, int study, const PlainMode& mode) {
  char sql[1024];
  const int* n = mode.numbers;
  std::snprintf(
      sql, sizeof sql,
      "INSERT INTO KIV_PlmMode (Id, PlmMode, Carrier, ServiceOption, GenerationType, SelectionMethod, "
      "AmpsDistribution, TdmaDistribution, TotalDistribution, SortBy, SelectFromList, RangeFrom, RangeTo, "
      "ExcludeAce, DistributionMethod) VALUES (%d, %d, %s, %s, %s, '%s', %s, %s, %s, '%s', '%s', %s, %s, "
      "'%s', '%s')",
      study, n[0], SqlNumber(n[1]).text, SqlNumber(n[2]).text, SqlNumber(n[3]).text, mode.texts[0],
      SqlNumber(n[4]).text, SqlNumber(n[5]).text, SqlNumber(n[6]).text, mode.texts[1], mode.texts[2],
      SqlNumber(n[7]).text, SqlNumber(n[8]).text, mode.texts[3], mode.texts[4]);
  Run(database, sql);
  for (const int channel : mode.channels) {
    std::snprintf(sql, sizeof sql,
                  "INSERT INTO KIV_PlmChannelList (Id, PlmMode, Channel) VALUES (%d, %d, %d)", study, n[0],
                  channel);
    Run(database, sql);
  }
}

}  // namespace

void LoadPlainStudy(sqlite3* database, int id, PlainPlmStudy& study) {
  char sql[256];
  study.id = id;
  std::snprintf(sql, sizeof sql,
                "SELECT kind, name, scenario_id, duration, polling_interval, retrieve_delay, revision FROM "
                "kiv_study WHERE id = %d",
                id);
  Query(database, sql, [&](sqlite3_stmt* row) {
    CopyText(study.name, row, 1);
    for (int i = 0; i < 5; ++i) study.numbers[i] = NumberAt(row, i + 2);
  });
  std::snprintf(sql, sizeof sql, "Select * From Kiv_PlmStudy Where ID = %d", id);
  Query(database, sql, [&](sqlite3_stmt* row) {
    for (int i = 0; i < 3; ++i) CopyText(study.texts[i], row, i + 1);
  });
  std::snprintf(sql, sizeof sql, "SELECT * FROM KIV_PlmMode WHERE Id = %d ORDER BY PlmMode", id);
  Query(database, sql, [&](sqlite3_stmt* row) {
    PlainMode& mode = study.modes.emplace_back();
    for (int i = 0; i < 9; ++i) mode.numbers[i] = NumberAt(row, kNumberColumns[i]);
    for (int i = 0; i < 5; ++i) CopyText(mode.texts[i], row, kTextColumns[i]);
  });
  for (PlainMode& mode : study.modes) {
    std::snprintf(sql, sizeof sql,
                  "SELECT * FROM KIV_PlmChannelList WHERE ID = %d AND PlmMode = %d ORDER BY PlmMode, Channel",
                  id, mode.numbers[0]);
    Query(database, sql, [&](sqlite3_stmt* row) { mode.channels.push_back(sqlite3_column_int(row, 2)); });
  }
}

void SavePlainStudy(sqlite3* database, PlainPlmStudy& study) {
  char now[32];
  const std::time_t time = std::time(nullptr);
  std::strftime(now, sizeof now, "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&time));
  char sql[1024];
  const int* n = study.numbers;
  Run(database, "BEGIN IMMEDIATE");
  std::snprintf(
      sql, sizeof sql,
      "UPDATE kiv_study SET kind = 'PLM Study', name = '%s', scenario_id = %s, duration = %d, "
      "polling_interval = %d, retrieve_delay = %d, revision = %d, modified_by = 'bench', modified_at = "
      "'%s' WHERE Id = %d AND revision = %d RETURNING revision",
      study.name, SqlNumber(n[0]).text, n[1], n[2], n[3], n[4] + 1, now, study.id, n[4]);
  Query(database, sql, [&](sqlite3_stmt* row) { study.numbers[4] = sqlite3_column_int(row, 0); });
  std::snprintf(sql, sizeof sql, "Delete From KIV_PlmChannelList Where ID=%d", study.id);
  Run(database, sql);
  std::snprintf(sql, sizeof sql, "Delete From KIV_PlmStudy Where ID=%d", study.id);
  Run(database, sql);
  std::snprintf(sql, sizeof sql,
                "INSERT INTO KIV_PlmStudy (Id, Path, DataFile, Tag) VALUES (%d, '%s', '%s', '%s')", study.id,
                study.texts[0], study.texts[1], study.texts[2]);
  Run(database, sql);
  for (const PlainMode& mode : study.modes) InsertMode(database, study.id, mode);
  Run(database, "COMMIT");
}

}  // namespace kiv::bench
