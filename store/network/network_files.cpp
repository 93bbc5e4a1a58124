#include "store/network/network_files.h"

#include <algorithm>
#include <system_error>

#include "store/lower_case.h"
#include "store/store_error.h"
#include "store/whole_file.h"

namespace kiv::store {

namespace {

constexpr std::string_view kEnding = ".csv";

StoreError Unreadable(const std::string& folder, const std::string& reason) {
  return StoreError("The folder \"" + folder + "\" cannot be read: " + reason + ".");
}

}  // namespace

NetworkFiles FindNetworkFiles(const std::string& utf8Folder) {
  const std::filesystem::path folder = PathOf(utf8Folder);
  NetworkFiles files;
  std::error_code error;
  std::filesystem::directory_iterator entries(folder, error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
    const std::string name = FileName(entries->path());
    const std::string lowered = LowerCase(name);
    if (!lowered.ends_with(kEnding)) continue;
    const auto& tables = NetworkTables();
    const auto table = std::ranges::find_if(
        tables, [&](const NetworkTable& known) { return LowerCase(FileNameOf(known)) == lowered; });
    if (table == tables.end()) {
      files.unknown.push_back(name);
    } else {
      files.ofTable[static_cast<std::size_t>(table->id)].push_back(entries->path());
    }
  }
  if (error) throw Unreadable(utf8Folder, error.message());
  std::ranges::sort(files.unknown);
  for (auto& paths : files.ofTable) std::ranges::sort(paths);
  return files;
}

}  // namespace kiv::store
