#include "rfc/rfc_studies.h"

#include <memory>
#include <vector>

#include "core/study_kinds.h"
#include "editor/study_editors.h"
#include "rfc/cdma_3g_tab.h"
#include "rfc/detail_tab.h"
#include "rfc/general_tab.h"
#include "rfc/rfc_data.h"

namespace kiv {

void RegisterRfcStudies() {
  RegisterStudyKind({kRfcStudy, CKivRfcData::kTable, [] { return std::make_shared<CKivRfcData>(); }});
  RegisterStudyEditor({.name = kRfcStudy,
                       .editorName = "RF Call Trace",
                       .createTabs =
                           [] {
                             std::vector<std::unique_ptr<Tab>> tabs;
                             tabs.push_back(std::make_unique<XKivRfcGen>());
                             tabs.push_back(std::make_unique<XKivRfcDetail>());
                             tabs.push_back(std::make_unique<XKivRfcCDMA3G>());
                             return tabs;
                           },
                       .scenarioChoice = ScenarioChoice::ByHost});
}

}  // namespace kiv
