#include "rfc/rfc_studies.h"

#include <memory>

#include "core/study_kinds.h"
#include "rfc/rfc_data.h"

namespace kiv {

void RegisterRfcStudies() {
  RegisterStudyKind({kRfcStudy, [] { return std::make_shared<CKivRfcData>(); }});
}

}  // namespace kiv
