#include "hom/hom_studies.h"

#include <memory>
#include <vector>

#include "core/study_kinds.h"
#include "editor/study_editors.h"
#include "hom/current_tab.h"
#include "hom/detail_tab.h"
#include "hom/general_tab.h"
#include "hom/hom_data.h"

namespace kiv {

void RegisterHomStudies() {
  RegisterStudyKind({kHomStudy, CKivHomData::kTable, [] { return std::make_shared<CKivHomData>(); }});
  RegisterStudyEditor({kHomStudy, "HOM", [] {
                         std::vector<std::unique_ptr<Tab>> tabs;
                         tabs.push_back(std::make_unique<XKivHomGen>());
                         tabs.push_back(std::make_unique<XKivHomDetail>());
                         tabs.push_back(std::make_unique<XKivHomCurrent>());
                         return tabs;
                       }});
}

}  // namespace kiv
