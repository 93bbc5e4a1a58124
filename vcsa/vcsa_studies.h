#pragma once

#include "core/study_kinds.h"

namespace kiv {

/// The table entry of VCSA studies.
StudyKind VcsaStudies();

}  // namespace kiv
