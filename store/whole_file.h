#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kiv::store {

std::filesystem::path PathOf(const std::string& utf8);
std::string FileName(const std::filesystem::path& path);

/// The bytes of a file. Raises StoreError with the system's reason.
std::string ReadWholeFile(const std::filesystem::path& path);

/// Whether what was written outlasts a power failure, which takes a moment, or only the program.
enum class Durability { Program, PowerFailure };

/// Replaces the content of a file, or makes it: all of it or nothing. Who may use the file stays as it was,
/// and a link stays one. Raises StoreError with the system's reason.
void WriteWholeFile(const std::filesystem::path& path, std::string_view bytes, Durability durability);

}  // namespace kiv::store
