#include "rfc/rfc_studies.h"

#include <memory>
#include <string>

#include "editor/study_tabs.h"
#include "rfc/cdma_3g_tab.h"
#include "rfc/detail_tab.h"
#include "rfc/general_tab.h"
#include "rfc/rfc_data.h"

namespace kiv {

StudyKind RfcStudies() {
  return {.name = std::string(kRfcStudy),
          .editorName = "RF Call Trace",
          .table = std::string(CKivRfcData::kTable),
          .createRecord = [] { return std::make_shared<CKivRfcData>(); },
          .tabs = {StudyTabOf<XKivRfcGen>(), StudyTabOf<XKivRfcDetail>(), StudyTabOf<XKivRfcCDMA3G>()},
          .scenarioChoice = ScenarioChoice::ByHost,
          .badge = {"R", 0xb25a00}};
}

}  // namespace kiv
