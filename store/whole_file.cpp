#include "store/whole_file.h"

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <system_error>

#include "store/store_error.h"

namespace kiv::store {

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

}  // namespace kiv::store
