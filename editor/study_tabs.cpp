#include "editor/study_tabs.h"

namespace kiv {

std::vector<std::unique_ptr<Tab>> CreateTabs(const StudyKind& kind) {
  std::vector<std::unique_ptr<Tab>> tabs;
  for (const StudyTab& tab : kind.tabs) tabs.push_back(tab.create());
  return tabs;
}

}  // namespace kiv
