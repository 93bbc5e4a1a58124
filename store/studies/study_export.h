#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/studies/study_store.h"

namespace kiv::store {

/// The text of studies, ordered by their numbers; of all when none is named. Raises StoreError for one that
/// is not there or cannot be exported.
std::string ExportStudies(const StudyStore& store, std::vector<std::int32_t> ids);

}  // namespace kiv::store
