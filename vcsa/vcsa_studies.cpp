#include "vcsa/vcsa_studies.h"

#include <memory>
#include <string>

#include "editor/study_tabs.h"
#include "vcsa/detail_tab.h"
#include "vcsa/general_tab.h"
#include "vcsa/vcs_data.h"

namespace kiv {

StudyKind VcsaStudies() {
  return {.name = std::string(kVcsStudy),
          .editorName = "VCSA",
          .table = std::string(CKivVcsData::kTable),
          .createRecord = [] { return std::make_shared<CKivVcsData>(); },
          .tabs = {StudyTabOf<XKivVcsGen>(), StudyTabOf<XKivVcsDetail>()},
          .scenarioChoice = ScenarioChoice::ByHost,
          .badge = {"V", 0x7b3f98}};
}

}  // namespace kiv
