#pragma once

#include "core/study_kinds.h"

namespace kiv {

/// The table entry of PLM studies.
StudyKind PlmStudies();

}  // namespace kiv
