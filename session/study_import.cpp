#include "session/study_import.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <utility>

#include "base/ascii.h"
#include "host/scope.h"
#include "session/study_problems.h"
#include "session/study_session.h"
#include "store/exchange/study_files.h"
#include "store/exchange/study_json.h"
#include "store/names.h"

namespace kiv::session {

namespace {

/// The scenarios of the database and those that an import would make, as the tabs of its studies see them
/// while this lives.
class PlannedScenarios {
 public:
  explicit PlannedScenarios(const store::StudyStore& store)
      : store_(store),
        documents_(std::make_shared<Library>(host::CurrentServices().documents, store.Scenarios().List())),
        scope_({.documents = documents_}, host::Rest::AsBefore) {}

  /// The number of a scenario, which is planned when there is none of the name.
  std::int32_t Find(const std::string& name) {
    if (name.empty()) return CKivStudyData::kNotGiven;
    if (const auto stored = store_.Scenarios().Find(name)) return *stored;
    const auto found = std::ranges::find(names_, AsciiUpper(name),
                                         [](const std::string& planned) { return AsciiUpper(planned); });
    const auto number = kFirstPlanned - static_cast<std::int32_t>(found - names_.begin());
    if (found == names_.end()) {
      names_.push_back(name);
      documents_->all.push_back({number, name});
    }
    return number;
  }
  const std::vector<std::string>& Names() const { return names_; }

 private:
  static constexpr std::int32_t kFirstPlanned = -2;  // below what stands for no scenario

  struct Library : host::DocumentLibrary {
    Library(std::shared_ptr<host::DocumentLibrary> library, std::vector<host::Document> stored)
        : inner(std::move(library)), all(std::move(stored)) {}

    std::shared_ptr<host::DocumentLibrary> inner;
    std::vector<host::Document> all;

    std::shared_ptr<host::DocumentType> NewDocumentType() const override { return inner->NewDocumentType(); }
    std::vector<host::Document> Documents(const host::DocumentType&) const override { return all; }
    std::optional<host::Document> AskForNewDocument(const host::DocumentType&) override { return {}; }
    std::string MissingDocumentText(const host::DocumentType& type) const override {
      return inner->MissingDocumentText(type);
    }
  };

  const store::StudyStore& store_;
  std::shared_ptr<Library> documents_;
  host::Scope scope_;
  std::vector<std::string> names_;
};

struct CheckedFiles {
  StudyImportReport report;
  std::vector<store::NamedStudy> studies;
};

void CheckFile(store::StudyStore& store, const std::string& file, PlannedScenarios& scenarios,
               CheckedFiles& checked) {
  StudyImportReport& report = checked.report;
  std::string text;
  try {
    text = store::ReadStudyFile(file);
  } catch (const store::StoreError& error) {
    report.problems.push_back({file, {}, error.what()});
    return;
  }
  store::ExportContent content = store::ReadExport(text);
  for (store::TextProblem& problem : content.problems) {
    report.problems.push_back({file, std::move(problem.study), std::move(problem.reason)});
  }
  store::ExportContent toStore = store::ReadExport(text);
  for (std::size_t i = 0; i < content.studies.size(); ++i) {
    store::NamedStudy& named = content.studies[i];
    report.studies.push_back({file, named.study.record->AppName(), named.study.name, 0});
    if (const std::string fault = store::NameFault(named.scenario); !fault.empty()) {
      report.problems.push_back({file, content.places[i], "the name of the scenario " + fault});
    }
    // The tabs work on the record that they are given, so it is one that nobody stores; it is shown as it is,
    // without what a new study is proposed.
    named.study.record->SetScenarioID(scenarios.Find(named.scenario));
    named.study.record->SetIsNew(false);
    for (const StudyProblem& problem : CheckStudy(store, std::move(named.study))) {
      auto& list = problem.severity == Severity::Error ? report.problems : report.warnings;
      list.push_back({file, content.places[i], ProblemText(problem)});
    }
    checked.studies.push_back(std::move(toStore.studies[i]));
  }
}

CheckedFiles Check(store::StudyStore& store, const std::vector<std::string>& files) {
  PlannedScenarios scenarios(store);
  CheckedFiles checked;
  for (const std::string& file : files) CheckFile(store, file, scenarios, checked);
  StudyImportReport& report = checked.report;
  report.newScenarios = scenarios.Names();
  if (report.problems.empty()) report.outcome = StudyImportReport::Outcome::Good;
  return checked;
}

}  // namespace

StudyImportReport CheckStudies(store::StudyStore& store, const std::vector<std::string>& files) {
  return Check(store, files).report;
}

StudyImportReport ImportStudies(store::StudyStore& store, const std::vector<std::string>& files,
                                const std::string& user) {
  CheckedFiles checked = Check(store, files);
  StudyImportReport& report = checked.report;
  if (report.outcome != StudyImportReport::Outcome::Good) return report;
  store.AddAll(checked.studies, user);
  for (std::size_t i = 0; i < report.studies.size(); ++i) {
    report.studies[i].id = checked.studies[i].study.record->ID();
  }
  report.outcome = StudyImportReport::Outcome::Imported;
  return report;
}

}  // namespace kiv::session
