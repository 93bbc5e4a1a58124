#pragma once

#include <string>

/// Files with exported studies.
namespace kiv::store {

/// Writes a text to a file, whole or not at all; what the file had before is replaced. Raises StoreError.
void WriteStudyFile(const std::string& file, const std::string& text);

/// Raises StoreError.
std::string ReadStudyFile(const std::string& file);

}  // namespace kiv::store
