#include "hom/hom_studies.h"

#include <memory>
#include <string>

#include "editor/study_tabs.h"
#include "hom/current_tab.h"
#include "hom/detail_tab.h"
#include "hom/general_tab.h"
#include "hom/hom_data.h"

namespace kiv {

StudyKind HomStudies() {
  return {.name = std::string(kHomStudy),
          .editorName = "HOM",
          .table = std::string(CKivHomData::kTable),
          .createRecord = [] { return std::make_shared<CKivHomData>(); },
          .tabs = {StudyTabOf<XKivHomGen>(), StudyTabOf<XKivHomDetail>(), StudyTabOf<XKivHomCurrent>()},
          .scenarioChoice = ScenarioChoice::OnTab,
          .badge = {"H", 0x1f6fb5}};
}

}  // namespace kiv
