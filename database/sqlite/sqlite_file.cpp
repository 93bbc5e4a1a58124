#include "database/sqlite/sqlite_file.h"

#include <sqlite3.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>
#include <vector>

#include "database/open_error.h"

namespace kiv::database {

namespace {

using FileHead = std::array<std::uint8_t, 100>;
constexpr std::string_view kSqliteMark("SQLite format 3\0", 16);
constexpr std::size_t kPageSizeOffset = 16;
constexpr std::size_t kPageCountOffset = 28;
constexpr std::size_t kUserVersionOffset = 60;
constexpr std::size_t kApplicationIdOffset = 68;

struct FileNameDeleter {
  using pointer = const char*;
  void operator()(const char* name) const { sqlite3_free_filename(name); }
};

/// A file opened for reading through SQLite's own file layer. A file stream would do harm: on POSIX, closing
/// it drops the locks that other connections of this process hold on the same file.
class DatabaseFile {
 public:
  explicit DatabaseFile(const std::string& utf8Path)
      : system_(sqlite3_vfs_find(nullptr)),
        name_(sqlite3_create_filename(SqliteFileName(utf8Path).c_str(), "", "", 0, nullptr)),
        storage_(static_cast<std::size_t>(system_->szOsFile) / sizeof(std::max_align_t) + 1) {
    if (!name_) throw std::bad_alloc();
    int flags = 0;
    if (system_->xOpen(system_, name_.get(), File(), SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB, &flags) !=
        SQLITE_OK) {
      const int systemError = system_->xGetLastError(system_, 0, nullptr);
      Close();
      throw OpenError(OpenProblem::Unreadable, utf8Path,
                      systemError == 0 ? "" : std::system_category().message(systemError));
    }
  }
  DatabaseFile(const DatabaseFile&) = delete;
  DatabaseFile& operator=(const DatabaseFile&) = delete;
  ~DatabaseFile() { Close(); }

  /// Whether the file is long enough.
  bool Read(FileHead& head) {
    return File()->pMethods->xRead(File(), head.data(), static_cast<int>(head.size()), 0) == SQLITE_OK;
  }
  std::int64_t Size() {
    sqlite3_int64 size = 0;
    File()->pMethods->xFileSize(File(), &size);
    return size;
  }

 private:
  sqlite3_file* File() { return reinterpret_cast<sqlite3_file*>(storage_.data()); }
  void Close() {
    if (File()->pMethods) File()->pMethods->xClose(File());
  }

  sqlite3_vfs* system_;
  std::unique_ptr<const char, FileNameDeleter> name_;
  std::vector<std::max_align_t> storage_;
};

std::int32_t NumberAt(const FileHead& head, std::size_t offset) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | head[offset + i];
  return static_cast<std::int32_t>(number);
}

/// What the head gives as the file's length.
std::int64_t StatedSize(const FileHead& head) {
  const std::int64_t pageSize = head[kPageSizeOffset] << 8 | head[kPageSizeOffset + 1];
  return (pageSize == 1 ? 65536 : pageSize) * static_cast<std::uint32_t>(NumberAt(head, kPageCountOffset));
}

/// The figures that nobody asks for cost a lock at each allocation. Only what comes before anything else of
/// SQLite can switch them off, and it does no harm when it comes too late.
void KeepNoAccountOfMemory() {
  [[maybe_unused]] static const int result = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

/// A database that were made there would stand where nobody chose it to be.
void RefuseDanglingLink(const std::filesystem::path& path, const std::string& utf8Path) {
  std::error_code error;
  const std::u8string target = std::filesystem::read_symlink(path, error).u8string();
  if (!error) throw OpenError(OpenProblem::DanglingLink, utf8Path, {target.begin(), target.end()});
}

FileFacts InspectContent(const std::string& utf8Path) {
  FileHead head{};
  DatabaseFile file(utf8Path);
  if (!file.Read(head) || std::memcmp(head.data(), kSqliteMark.data(), kSqliteMark.size()) != 0) {
    return {.kind = FileKind::OtherContent};
  }
  return {.kind = FileKind::SqliteDatabase,
          .applicationId = NumberAt(head, kApplicationIdOffset),
          .userVersion = NumberAt(head, kUserVersionOffset),
          .cutShort = file.Size() < StatedSize(head)};
}

}  // namespace

std::filesystem::path PathFromUtf8(const std::string& utf8Path) {
  return std::u8string(utf8Path.begin(), utf8Path.end());
}

std::string SqliteFileName(const std::string& utf8Path) {
  const std::filesystem::path path = std::filesystem::absolute(PathFromUtf8(utf8Path));
  std::error_code error;
  const std::filesystem::path resolved = std::filesystem::weakly_canonical(path, error);
  const std::u8string name = (error ? path : resolved).u8string();
  return {name.begin(), name.end()};
}

FileFacts InspectFile(const std::string& utf8Path) {
  KeepNoAccountOfMemory();
  // An empty path or one with a NUL would name another file than the one that the user sees.
  if (utf8Path.empty() || utf8Path.find('\0') != std::string::npos) return {.kind = FileKind::Missing};

  if (static_cast<int>(SqliteFileName(utf8Path).size()) > sqlite3_vfs_find(nullptr)->mxPathname) {
    throw OpenError(OpenProblem::NameTooLong, utf8Path);
  }
  const std::filesystem::path path = PathFromUtf8(utf8Path);
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  switch (status.type()) {
    case std::filesystem::file_type::not_found: RefuseDanglingLink(path, utf8Path); return {};
    case std::filesystem::file_type::directory: return {.kind = FileKind::Folder};
    case std::filesystem::file_type::regular: break;
    case std::filesystem::file_type::none:
      if (error == std::errc::filename_too_long) throw OpenError(OpenProblem::NameTooLong, utf8Path);
      throw OpenError(OpenProblem::Unreadable, utf8Path, error.message());
    default: return {.kind = FileKind::Special};
  }
  if (std::filesystem::file_size(path, error) == 0) return {.kind = FileKind::Empty};
  return InspectContent(utf8Path);
}

}  // namespace kiv::database
