#include "plm/plm_studies.h"

#include <memory>
#include <vector>

#include "core/study_kinds.h"
#include "editor/study_editors.h"
#include "plm/general_tab.h"
#include "plm/plm_data.h"

namespace kiv {

void RegisterPlmStudies() {
  RegisterStudyKind({kPlmStudy, [] { return std::make_shared<CKivPlmData>(); }});
  RegisterStudyEditor({kPlmStudy, "PLM", [] {
                         std::vector<std::unique_ptr<Tab>> tabs;
                         tabs.push_back(std::make_unique<XKivPlmGen>());
                         return tabs;
                       }});
}

}  // namespace kiv
