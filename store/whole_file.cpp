#include "store/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <system_error>
#include <utility>

#include "store/store_error.h"

namespace kiv::store {

namespace {

StoreError SystemError(int number) {
  return StoreError(std::generic_category().message(number == 0 ? EIO : number));
}

void Require(bool good) {
  if (!good) throw SystemError(errno);
}

/// Renaming would also replace a file that must not be written.
void RequireWritable(const std::filesystem::path& path) {
  Require(faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 || errno == ENOENT);
}

/// Far more than any file that is read here. A file with holes may seem larger than the memory.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

/// A new file beside another one, which takes its place in the end or goes away.
class FileBeside {
 public:
  explicit FileBeside(const std::filesystem::path& path)
      : path_(path), name_(path.native() + ".XXXXXX"), file_(mkstemp(name_.data())) {
    Require(file_ >= 0);
  }
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;
  ~FileBeside() {
    if (file_ >= 0) close(file_);
    if (!name_.empty()) unlink(name_.c_str());
  }

  void Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(file_, bytes.data(), bytes.size());
      Require(written >= 0 || errno == EINTR);
      if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  /// A file of its own is for its maker only; this one is for whom any new file is for.
  void TakePermissions() const {
    struct stat present {};
    mode_t mode = 0;
    if (stat(path_.c_str(), &present) == 0) {
      mode = present.st_mode & 07777;
    } else {
      const mode_t mask = umask(0);
      umask(mask);
      mode = 0666 & ~mask;
    }
    Require(fchmod(file_, mode) == 0);
  }
  void Sync() const { Require(fsync(file_) == 0); }
  void TakePlace() {
    Require(close(std::exchange(file_, -1)) == 0);
    Require(rename(name_.c_str(), path_.c_str()) == 0);
    name_.clear();
  }

 private:
  std::filesystem::path path_;
  std::string name_;
  int file_;
};

/// The renaming itself is lasting once the folder is. A file system that cannot do so has done what it can.
void SyncFolder(const std::filesystem::path& file) {
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  const int opened = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (opened < 0) return;
  fsync(opened);
  close(opened);
}

}  // namespace

std::filesystem::path PathOf(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

std::string FileName(const std::filesystem::path& path) {
  const std::u8string name = path.filename().u8string();
  return {name.begin(), name.end()};
}

std::string ReadWholeFile(const std::filesystem::path& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  if (error) throw StoreError(error.message());
  if (size > kLargestFile) throw StoreError("it is larger than 1 GB, the most that can be read");
  std::string bytes(size, '\0');
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  if (!file || static_cast<std::uintmax_t>(file.gcount()) != size) throw SystemError(errno);
  return bytes;
}

void WriteWholeFile(const std::filesystem::path& path, std::string_view bytes, Durability durability) {
  std::error_code error;
  const bool isLink = std::filesystem::is_symlink(path, error);
  const std::filesystem::path target = isLink ? std::filesystem::weakly_canonical(path, error) : path;
  if (target.empty()) throw StoreError(error.message());
  RequireWritable(target);
  FileBeside file(target);
  file.Write(bytes);
  file.TakePermissions();
  if (durability == Durability::PowerFailure) file.Sync();
  file.TakePlace();
  if (durability == Durability::PowerFailure) SyncFolder(target);
}

}  // namespace kiv::store
