#include "store/studies/study_export.h"

#include <algorithm>
#include <utility>

#include "store/exchange/study_json.h"

namespace kiv::store {

std::string ExportStudies(const StudyStore& store, std::vector<std::int32_t> ids) {
  if (ids.empty()) {
    for (const StudySummary& study : store.List()) ids.push_back(study.id);
  }
  std::ranges::sort(ids);
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  const std::vector<host::Document> scenarios = store.Scenarios().List();
  std::vector<NamedStudy> studies;
  studies.reserve(ids.size());
  for (const std::int32_t id : ids) {
    Study study = store.Load(id);
    const std::int32_t scenario = study.record->ScenarioID();
    studies.push_back({std::move(study), NameOf(scenarios, scenario)});
  }
  return ExportText(studies);
}

}  // namespace kiv::store
