#include "vcsa/vcsa_studies.h"

#include <memory>
#include <vector>

#include "core/study_kinds.h"
#include "editor/study_editors.h"
#include "vcsa/detail_tab.h"
#include "vcsa/general_tab.h"
#include "vcsa/vcs_data.h"

namespace kiv {

void RegisterVcsaStudies() {
  RegisterStudyKind({kVcsStudy, CKivVcsData::kTable, [] { return std::make_shared<CKivVcsData>(); }});
  RegisterStudyEditor({.name = kVcsStudy,
                       .editorName = "VCSA",
                       .createTabs =
                           [] {
                             std::vector<std::unique_ptr<Tab>> tabs;
                             tabs.push_back(std::make_unique<XKivVcsGen>());
                             tabs.push_back(std::make_unique<XKivVcsDetail>());
                             return tabs;
                           },
                       .scenarioChoice = ScenarioChoice::ByHost});
}

}  // namespace kiv
