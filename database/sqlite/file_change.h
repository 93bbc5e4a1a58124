#pragma once

#include <string>

struct sqlite3;

namespace kiv::database {

/// What became of the file behind an open connection, as one message for the user: that it was deleted,
/// replaced, overwritten or cut short, or brought to another layout than the one that it was opened with.
/// Empty when it is the file that was opened.
std::string FileChange(sqlite3* connection, const std::string& utf8Path, int layout);

/// Whether its name leads to another file now, or to none. That is one look at the folder.
bool FileHasMoved(sqlite3* connection);

}  // namespace kiv::database
