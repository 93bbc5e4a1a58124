#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "store/network/network_tables.h"

namespace kiv::store {

/// The CSV files of a folder by the tables they belong to; letter case in their names does not matter.
struct NetworkFiles {
  std::array<std::vector<std::filesystem::path>, kNetworkTableCount> ofTable;
  std::vector<std::string> unknown;  ///< names of the other CSV files, sorted
};

/// Raises StoreError when the folder is none or cannot be read.
NetworkFiles FindNetworkFiles(const std::string& utf8Folder);

}  // namespace kiv::store
