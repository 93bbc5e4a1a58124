#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "database/connection.h"
#include "store/network/network_check.h"

namespace kiv::store {

/// What came of checking or importing a folder with the files of a network configuration.
struct NetworkReport {
  enum class Outcome { Good, Imported, Refused, Cancelled };
  struct Table {
    std::string name;
    std::int32_t rows = 0;
  };

  Outcome outcome = Outcome::Refused;
  std::vector<Table> tables;              ///< with the rows in their files
  std::vector<BadLine> badLines;          ///< file by file, each in the order of its lines
  std::vector<std::string> unknownFiles;  ///< CSV files of the folder that belong to no table
};

/// Is told what is being done and how much of everything is done, from 0 to 1. Cancel ends it; then nothing
/// of the import is kept.
enum class ImportChoice { GoOn, Cancel };
using ImportProgress = std::function<ImportChoice(std::string_view step, double done)>;

/// Checks every line of every file and writes nothing. A folder that cannot be read is a StoreError.
NetworkReport CheckNetwork(const std::string& folder, const ImportProgress& progress = {});

/// Checks the files and, when all is good, replaces the stored configuration by theirs in one transaction.
/// Studies stay as they are. A database that fails raises host::DatabaseError and keeps the old
/// configuration; OutcomeUnknown says that this could not be found out.
NetworkReport ImportNetwork(database::Connection& connection, const std::string& folder,
                            const ImportProgress& progress = {}, const std::string& user = {});

}  // namespace kiv::store
