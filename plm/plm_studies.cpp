#include "plm/plm_studies.h"

#include <memory>
#include <string>

#include "editor/study_tabs.h"
#include "plm/cdma_tab.h"
#include "plm/general_tab.h"
#include "plm/plm_data.h"
#include "plm/tdma_tab.h"

namespace kiv {

StudyKind PlmStudies() {
  return {.name = std::string(kPlmStudy),
          .editorName = "PLM",
          .table = std::string(CKivPlmData::kTable),
          .createRecord = [] { return std::make_shared<CKivPlmData>(); },
          .tabs = {StudyTabOf<XKivPlmGen>(), StudyTabOf<XKivPlmCdma>(), StudyTabOf<XKivPlmTdma>()},
          .scenarioChoice = ScenarioChoice::OnTab,
          .badge = {"P", 0x2e7d32}};
}

}  // namespace kiv
