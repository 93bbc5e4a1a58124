#include "support/faulty_files.h"

#include <signal.h>
#include <sqlite3.h>

#include <algorithm>

namespace kiv::test {

namespace {

constexpr std::size_t kSector = 512;

struct State {
  FileFault fault = FileFault::None;
  int callsUntil = 0;
  bool lasts = false;
  bool failed = false;
  bool recording = false;
  std::vector<FileEvent> events;
} state;

sqlite3_vfs* systemFiles = nullptr;

/// A file that SQLite has open: its name, what the system does with it, and what is done instead.
struct OpenFile {
  std::string name;
  const sqlite3_io_methods* system;
  sqlite3_io_methods faulty;
};
std::map<sqlite3_file*, OpenFile> openFiles;

enum class Writes : bool { No, Yes };

/// The fault of this call, if it has one.
FileFault NextFault(Writes writes) {
  if (state.fault == FileFault::None || --state.callsUntil > 0) return FileFault::None;
  if (state.fault == FileFault::Full && writes == Writes::No) return FileFault::None;
  const FileFault fault = state.fault;
  if (!state.lasts) state.fault = FileFault::None;
  state.failed = true;
  if (fault == FileFault::Kill) raise(SIGKILL);
  return fault;
}

void Note(FileEvent event) {
  if (state.recording) state.events.push_back(std::move(event));
}

/// Carries a call out, or not; `half` does half of it.
template <class Call, class Half>
int Attempt(Writes writes, int code, const Call& call, const Half& half) {
  switch (NextFault(writes)) {
    case FileFault::None: return call();
    case FileFault::Full: return SQLITE_FULL;
    case FileFault::Short: half(); return code;
    case FileFault::DoneError: call(); return code;
    default: return code;
  }
}
template <class Call>
int Attempt(Writes writes, int code, const Call& call) {
  return Attempt(writes, code, call, [] {});
}

int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset) {
  const auto read = [&](int length) { return openFiles.at(file).system->xRead(file, bytes, length, offset); };
  return Attempt(
      Writes::No, SQLITE_IOERR_READ, [&] { return read(count); }, [&] { read(count / 2); });
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  const auto write = [&](int length) {
    Note({FileEvent::Kind::Write,
          openFiles.at(file).name,
          offset,
          {static_cast<const char*>(bytes), static_cast<std::size_t>(length)}});
    return openFiles.at(file).system->xWrite(file, bytes, length, offset);
  };
  return Attempt(
      Writes::Yes, SQLITE_IOERR_WRITE, [&] { return write(count); }, [&] { write(count / 2); });
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  return Attempt(Writes::Yes, SQLITE_IOERR_TRUNCATE, [&] {
    Note({FileEvent::Kind::Truncate, openFiles.at(file).name, size, {}});
    return openFiles.at(file).system->xTruncate(file, size);
  });
}

/// Nothing is really written out: only a real power failure would tell, and waiting for the disk takes long.
int Sync(sqlite3_file* file, int) {
  return Attempt(Writes::Yes, SQLITE_IOERR_FSYNC, [&] {
    Note({FileEvent::Kind::Sync, openFiles.at(file).name, 0, {}});
    return SQLITE_OK;
  });
}

int Close(sqlite3_file* file) {
  const OpenFile closed = openFiles.extract(file).mapped();
  return closed.system->xClose(file);
}

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* givenFlags) {
  file->pMethods = nullptr;
  const int code = Attempt(Writes::No, SQLITE_CANTOPEN,
                           [&] { return systemFiles->xOpen(systemFiles, name, file, flags, givenFlags); });
  if (!file->pMethods) return code;
  OpenFile& opened = openFiles[file] = {name ? name : "", file->pMethods, *file->pMethods};
  opened.faulty.iVersion = 1;  // without memory maps, which rollback journals need not
  opened.faulty.xClose = Close;
  opened.faulty.xRead = Read;
  opened.faulty.xWrite = Write;
  opened.faulty.xTruncate = Truncate;
  opened.faulty.xSync = Sync;
  file->pMethods = &opened.faulty;
  return code;
}

int Delete(sqlite3_vfs*, const char* name, int syncFolder) {
  return Attempt(Writes::Yes, SQLITE_IOERR_DELETE, [&] {
    Note({FileEvent::Kind::Delete, name, 0, {}, syncFolder != 0});
    return systemFiles->xDelete(systemFiles, name, 0);
  });
}

sqlite3_vfs faultyFiles;

}  // namespace

FaultyFiles::FaultyFiles() {
  state = {};
  systemFiles = sqlite3_vfs_find(nullptr);
  faultyFiles = *systemFiles;
  faultyFiles.pNext = nullptr;
  faultyFiles.zName = "faulty";
  faultyFiles.xOpen = Open;
  faultyFiles.xDelete = Delete;
  sqlite3_vfs_register(&faultyFiles, 1);
}

FaultyFiles::~FaultyFiles() {
  sqlite3_vfs_unregister(&faultyFiles);
  sqlite3_vfs_register(systemFiles, 1);
}

void FaultyFiles::Fail(FileFault fault, int call, bool lasts) {
  state.fault = fault;
  state.callsUntil = call;
  state.lasts = lasts;
  state.failed = false;
}

bool FaultyFiles::HasFailed() const {
  return state.failed;
}

void FaultyFiles::Record(bool on) {
  state.recording = on;
  state.events.clear();
}

const std::vector<FileEvent>& FaultyFiles::Events() const {
  return state.events;
}

namespace {

void Put(std::string& content, std::size_t offset, std::string_view bytes) {
  content.resize(std::max(content.size(), offset + bytes.size()));
  content.replace(offset, bytes.size(), bytes);
}

void Apply(std::string& content, const FileEvent& event, const std::function<bool()>& lucky) {
  if (event.kind == FileEvent::Kind::Truncate) {
    if (lucky()) content.resize(static_cast<std::size_t>(event.offset));
    return;
  }
  for (std::size_t done = 0; done < event.bytes.size();) {
    const std::size_t offset = static_cast<std::size_t>(event.offset) + done;
    const std::size_t length = std::min(kSector - offset % kSector, event.bytes.size() - done);
    if (lucky()) Put(content, offset, std::string_view(event.bytes).substr(done, length));
    done += length;
  }
}

}  // namespace

namespace {

/// What comes of a file when its events happen, or parts of them.
void Carry(std::map<std::string, std::string>& files, const std::vector<FileEvent>& events,
           const std::function<bool()>& lucky) {
  for (const FileEvent& event : events) {
    if (event.kind != FileEvent::Kind::Delete) {
      Apply(files[event.file], event, lucky);
    } else if (event.lasting || lucky()) {
      files.erase(event.file);
    }
  }
}

}  // namespace

void PowerFailure::Happen(const FileEvent& event) {
  std::vector<FileEvent>& pending = pending_[event.file];
  if (event.kind != FileEvent::Kind::Sync) pending.push_back(event);
  if (event.kind != FileEvent::Kind::Sync && !event.lasting) return;
  Carry(files_, pending, [] { return true; });
  pending.clear();
}

std::map<std::string, std::string> PowerFailure::Files(const std::function<bool()>& lucky) const {
  auto files = files_;
  for (const auto& [file, events] : pending_) Carry(files, events, lucky);
  return files;
}

}  // namespace kiv::test
