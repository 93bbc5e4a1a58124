#pragma once

#include "core/study_kinds.h"

namespace kiv {

/// The table entry of RF call trace studies.
StudyKind RfcStudies();

}  // namespace kiv
