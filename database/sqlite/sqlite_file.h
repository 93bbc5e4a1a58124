#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace kiv::database {

enum class FileKind { Missing, Folder, Special, Empty, OtherContent, SqliteDatabase };

/// What a file says of itself.
struct FileFacts {
  FileKind kind = FileKind::Missing;
  /// The two numbers in the head of an SQLite database that its program chooses.
  std::int32_t applicationId = 0;
  std::int32_t userVersion = 0;
  bool cutShort = false;  ///< ends before its head says
};

/// Looks at a file without changing anything: a plain open would already play back the journal that a crashed
/// program left. Raises OpenError when the file cannot be read.
FileFacts InspectFile(const std::string& utf8Path);

std::filesystem::path PathFromUtf8(const std::string& utf8Path);

/// The path as SQLite takes it: absolute, because names such as ":memory:" or "file:x" have a meaning of
/// their own there, and without links, because its file layer opens none.
std::string SqliteFileName(const std::string& utf8Path);

}  // namespace kiv::database
