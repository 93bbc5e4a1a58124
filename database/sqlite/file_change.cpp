#include "database/sqlite/file_change.h"

#include <sqlite3.h>

#include "database/open_error.h"
#include "database/schema.h"
#include "database/sqlite/sqlite_file.h"

namespace kiv::database {

namespace {

struct Change {
  std::string what;   ///< was done to the file; empty for nothing
  std::string first;  ///< to do before the file is opened again
};

Change ChangeOf(const FileFacts& facts, bool moved, int layout) {
  const std::string restore = "Restore it from a copy";
  if (facts.kind == FileKind::Missing) return {"deleted or moved", "Put it back or restore it from a copy"};
  if (moved) return {"replaced by another file", ""};
  if (facts.kind == FileKind::Empty) return {"emptied", restore};
  if (facts.kind != FileKind::SqliteDatabase) return {"overwritten", restore};
  if (facts.cutShort) return {"cut short", restore};
  if (facts.userVersion == layout) return {};
  return {"brought to layout number " + std::to_string(facts.userVersion),
          facts.userVersion > NewestSchemaVersion() ? "Install the newer version of kivstudy" : ""};
}

}  // namespace

bool FileHasMoved(sqlite3* connection) {
  int moved = 0;
  return sqlite3_file_control(connection, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0;
}

std::string FileChange(sqlite3* connection, const std::string& utf8Path, int layout) {
  FileFacts facts;
  try {
    facts = InspectFile(utf8Path);
  } catch (const OpenError&) {
    return {};  // it is there, and why it cannot be read is what the statement failed for
  }
  const Change change = ChangeOf(facts, FileHasMoved(connection), layout);
  if (change.what.empty()) return {};
  return "The file of the study database '" + utf8Path + "' was " + change.what + " while it was open. " +
         (change.first.empty() ? "Open" : change.first + ", open") + " it again, then repeat what you did.";
}

}  // namespace kiv::database
