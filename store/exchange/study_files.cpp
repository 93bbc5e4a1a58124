#include "store/exchange/study_files.h"

#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "store/store_error.h"
#include "store/whole_file.h"

namespace kiv::store {

namespace {

StoreError NotWritten(const std::string& file, const std::string& reason) {
  return StoreError("The file \"" + file + "\" was not written: " + reason + ". Choose another file.");
}

bool IsDatabaseFile(const std::filesystem::path& path) {
  constexpr std::string_view kMark("SQLite format 3");
  std::string head(kMark.size(), '\0');
  std::ifstream(path, std::ios::binary).read(head.data(), static_cast<std::streamsize>(head.size()));
  return head == kMark;
}

}  // namespace

void WriteStudyFile(const std::string& file, const std::string& text) {
  if (file.empty()) throw StoreError("The name of the file to write is missing.");
  const std::filesystem::path path = PathOf(file);
  std::error_code error;
  const bool exists = std::filesystem::exists(path, error);
  if (exists && !std::filesystem::is_regular_file(path, error)) throw NotWritten(file, "it is no plain file");
  if (IsDatabaseFile(path)) throw NotWritten(file, "it is a database, which an export must not replace");
  try {
    WriteWholeFile(path, text, Durability::PowerFailure);
  } catch (const StoreError& failure) {
    throw NotWritten(file, failure.what());
  }
}

std::string ReadStudyFile(const std::string& file) {
  try {
    return ReadWholeFile(PathOf(file));
  } catch (const StoreError& error) {
    throw StoreError(std::string("cannot be read: ") + error.what());
  }
}

}  // namespace kiv::store
