#pragma once

#include "core/study_kinds.h"

namespace kiv {

/// The table entry of HOM studies.
StudyKind HomStudies();

}  // namespace kiv
