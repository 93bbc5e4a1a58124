#pragma once

#include <memory>
#include <vector>

#include "core/study_kinds.h"
#include "editor/tab.h"

namespace kiv {

/// A tab class for the table entry of its kind.
template <class TabType>
StudyTab StudyTabOf() {
  return {TabType::kClassName, [] { return std::make_unique<TabType>(); }};
}

/// Makes all tabs of a kind.
std::vector<std::unique_ptr<Tab>> CreateTabs(const StudyKind& kind);

}  // namespace kiv
