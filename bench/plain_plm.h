#pragma once

#include <vector>

struct sqlite3;

/// The baseline: a PLM study in plain structs, written and read through the sqlite3 library with the same
/// statements, by column number and without any check of what comes back.
namespace kiv::bench {

struct PlainMode {
  int numbers[9];  ///< mode, carrier, service option, generation type, distributions, range; -1 is NULL
  char texts[5][32];
  std::vector<int> channels;
};

struct PlainPlmStudy {
  int id;
  int numbers[5];  ///< scenario, duration, polling interval, retrieve delay, revision
  char name[64];
  char texts[3][128];
  std::vector<PlainMode> modes;
};

void LoadPlainStudy(sqlite3* database, int id, PlainPlmStudy& study);

/// Deletes and writes everything, one statement for each row, in one transaction.
void SavePlainStudy(sqlite3* database, PlainPlmStudy& study);

}  // namespace kiv::bench
