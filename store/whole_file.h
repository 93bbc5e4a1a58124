#pragma once

#include <filesystem>
#include <string>

namespace kiv::store {

std::string FileName(const std::filesystem::path& path);

/// The bytes of a file. Raises StoreError with the system's reason.
std::string ReadWholeFile(const std::filesystem::path& path);

}  // namespace kiv::store
