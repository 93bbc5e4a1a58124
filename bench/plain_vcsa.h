#pragma once

#include <vector>

struct sqlite3;

/// The baseline: a VCSA study in plain structs, read and written through the sqlite3 library with the same
/// statement texts, by column number and without any check of what comes back.
namespace kiv::bench {

struct PlainAntenna {
  int instance, system, ecp, cell, number;
  bool selected;
};

struct PlainCell {
  int instance, system, ecp, cell;
  std::vector<PlainAntenna> antennas;
  std::vector<PlainAntenna> carriers;
};

struct PlainVcsaStudy {
  int id;
  char texts[18][64];
  std::vector<PlainCell> cells;
};

void LoadPlainStudy(sqlite3* database, int id, PlainVcsaStudy& study);

/// Updates the row and writes the lists anew, one text for each row, in one transaction.
void SavePlainStudy(sqlite3* database, const PlainVcsaStudy& study);

}  // namespace kiv::bench
