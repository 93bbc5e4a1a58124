#include "store/study.h"

#include "core/study_kinds.h"
#include "store/store_error.h"

namespace kiv::store {

std::string MissingDataText(std::int32_t id) {
  return "The data of study " + std::to_string(id) +
         " are missing in the database; only its name, scenario and times are there. Restore them from a "
         "copy "
         "of the database, or complete the pages and save the study, which stores them again.";
}

std::string EditorNameOf(const std::string& kind) {
  const StudyKind* known = FindStudyKind(kind);
  if (!known) throw UnknownKind(kind);
  return known->editorName;
}

Study NewStudy(const std::string& kind) {
  Study study{std::make_shared<CKivStudyData>(), {}, 0, KindData::Complete};
  CKivStudyData& record = *study.record;
  record.InitNew(kind, EditorNameOf(kind), record.StudyType(), record.ScenarioType(), 0);
  return study;
}

}  // namespace kiv::store
