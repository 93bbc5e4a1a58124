#include "client/cli/study_import_printer.h"

#include <ostream>

#include "client/cli/terminal_text.h"
#include "client/texts/import_text.h"
#include "store/exchange/json.h"

namespace kiv::client {

namespace {

const char* OutcomeWord(session::StudyImportReport::Outcome outcome) {
  using enum session::StudyImportReport::Outcome;
  switch (outcome) {
    case Good: return "good";
    case Imported: return "imported";
    case Refused: return "refused";
  }
  return "";
}

store::Json ProblemList(const std::vector<session::ImportProblem>& problems) {
  store::Json list = store::Json::array();
  for (const session::ImportProblem& problem : problems) {
    list.push_back({{"file", problem.file},
                    {"study", problem.study.empty() ? store::Json() : store::Json(problem.study)},
                    {"reason", problem.reason}});
  }
  return list;
}

void PrintJson(const session::StudyImportReport& report, std::ostream& out) {
  store::Json studies = store::Json::array();
  for (const session::StudyImportReport::Entry& study : report.studies) {
    studies.push_back({{"file", study.file},
                       {"kind", study.kind},
                       {"name", study.name},
                       {"id", study.id == 0 ? store::Json() : store::Json(study.id)}});
  }
  out << store::ShownJson({{"outcome", OutcomeWord(report.outcome)},
                           {"studies", studies},
                           {"newScenarios", report.newScenarios},
                           {"problems", ProblemList(report.problems)},
                           {"warnings", ProblemList(report.warnings)}})
      << '\n';
}

}  // namespace

void PrintStudyImport(const session::StudyImportReport& report, OutputFormat format, std::ostream& out,
                      std::ostream& err) {
  if (format == OutputFormat::Json) return PrintJson(report, out);
  if (report.outcome == session::StudyImportReport::Outcome::Imported) {
    for (const session::StudyImportReport::Entry& study : report.studies) {
      out << "Study " << study.id << " \"" << TerminalText(study.name) << "\"\n";
    }
  }
  for (const auto* list : {&report.warnings, &report.problems}) {
    for (const session::ImportProblem& problem : *list)
      err << TerminalText(ImportProblemText(problem)) << '\n';
  }
  (report.outcome == session::StudyImportReport::Outcome::Refused ? err : out)
      << TerminalText(OutcomeText(report)) << '\n';
}

}  // namespace kiv::client
