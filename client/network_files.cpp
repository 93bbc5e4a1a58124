#include "client/network_files.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "client/store_error.h"

namespace kiv::client {

namespace {

constexpr std::string_view kEnding = ".csv";

std::string LowerCase(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return text;
}

StoreError Unreadable(const std::string& folder, const std::string& reason) {
  return StoreError("The folder \"" + folder + "\" cannot be read: " + reason + ".");
}

}  // namespace

NetworkFiles FindNetworkFiles(const std::string& utf8Folder) {
  const std::filesystem::path folder(std::u8string(utf8Folder.begin(), utf8Folder.end()));
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

std::string FileName(const std::filesystem::path& path) {
  const std::u8string name = path.filename().u8string();
  return {name.begin(), name.end()};
}

std::string ReadWholeFile(const std::filesystem::path& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  if (error) throw StoreError(error.message());
  std::string bytes(size, '\0');
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  if (!file || static_cast<std::uintmax_t>(file.gcount()) != size) {
    throw StoreError(std::generic_category().message(errno == 0 ? EIO : errno));
  }
  return bytes;
}

}  // namespace kiv::client
