#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kiv::test {

/// What goes wrong with a file.
enum class FileFault {
  None,
  Error,      ///< the call does nothing and fails
  Full,       ///< a call that writes does nothing, because the disk is full
  Short,      ///< half of it is read or written, then the call fails
  DoneError,  ///< all of it is done, and the call fails all the same
  Kill        ///< the process is killed before the call
};

/// One thing that SQLite did to a file.
struct FileEvent {
  enum class Kind { Write, Truncate, Sync, Delete };
  Kind kind;
  std::string file;
  std::int64_t offset = 0;  ///< of a truncation: the new size
  std::string bytes;
  bool lasting = false;  ///< of a deletion: the folder was written out as well
};

/// While it lives, every file of SQLite in this process fails on demand, and what is done to it can be
/// recorded. One at a time.
class FaultyFiles {
 public:
  FaultyFiles();
  FaultyFiles(const FaultyFiles&) = delete;
  FaultyFiles& operator=(const FaultyFiles&) = delete;
  ~FaultyFiles();

  /// Lets the n-th call from now on fail, counted from 1, and also the ones behind it when it `lasts`.
  void Fail(FileFault fault, int call, bool lasts);
  void Mend() { Fail(FileFault::None, 0, false); }
  /// Whether a call has failed since.
  bool HasFailed() const;

  void Record(bool on);
  const std::vector<FileEvent>& Events() const;
};

/// Files as a disk may have them when the power fails: what was written out is there, and of everything else
/// any part, in pieces of a sector.
class PowerFailure {
 public:
  /// The files before the first event.
  explicit PowerFailure(std::map<std::string, std::string> files) : files_(std::move(files)) {}

  void Happen(const FileEvent& event);
  /// The files that the disk has; `lucky` answers for each piece whether it arrived.
  std::map<std::string, std::string> Files(const std::function<bool()>& lucky) const;

 private:
  std::map<std::string, std::string> files_;               // on the disk for sure
  std::map<std::string, std::vector<FileEvent>> pending_;  // since the last sync
};

}  // namespace kiv::test
