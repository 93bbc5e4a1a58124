#include "plm/plm_studies.h"

#include <memory>
#include <vector>

#include "core/study_kinds.h"
#include "editor/study_editors.h"
#include "plm/cdma_tab.h"
#include "plm/general_tab.h"
#include "plm/plm_data.h"
#include "plm/tdma_tab.h"

namespace kiv {

void RegisterPlmStudies() {
  RegisterStudyKind({kPlmStudy, CKivPlmData::kTable, [] { return std::make_shared<CKivPlmData>(); }});
  RegisterStudyEditor({kPlmStudy, "PLM", [] {
                         std::vector<std::unique_ptr<Tab>> tabs;
                         tabs.push_back(std::make_unique<XKivPlmGen>());
                         tabs.push_back(std::make_unique<XKivPlmCdma>());
                         tabs.push_back(std::make_unique<XKivPlmTdma>());
                         return tabs;
                       }});
}

}  // namespace kiv
