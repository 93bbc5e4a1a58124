#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/studies/study_store.h"

/// Files with exported studies.
namespace kiv::store {

/// The text of studies, ordered by their numbers; of all when none is named. Raises StoreError for one that
/// is not there or cannot be exported.
std::string ExportStudies(const StudyStore& store, std::vector<std::int32_t> ids);

/// Writes a text to a file, whole or not at all; what the file had before is replaced. Raises StoreError.
void WriteStudyFile(const std::string& file, const std::string& text);

/// Raises StoreError.
std::string ReadStudyFile(const std::string& file);

}  // namespace kiv::store
