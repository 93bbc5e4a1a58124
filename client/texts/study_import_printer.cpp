#include "client/texts/study_import_printer.h"

#include <ostream>

#include "client/texts/terminal_text.h"
#include "store/exchange/json.h"

namespace kiv::client {

namespace {

using Outcome = session::StudyImportReport::Outcome;

std::string Counted(std::size_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

const char* OutcomeWord(Outcome outcome) {
  switch (outcome) {
    case Outcome::Good: return "good";
    case Outcome::Imported: return "imported";
    case Outcome::Refused: return "refused";
  }
  return "";
}

std::string ScenarioText(const session::StudyImportReport& report) {
  if (report.newScenarios.empty() || report.outcome == Outcome::Refused) return {};
  std::string names;
  for (const std::string& name : report.newScenarios) names += (names.empty() ? "\"" : ", \"") + name + "\"";
  return (report.outcome == Outcome::Good ? " An import makes the " : " It made the ") +
         std::string(report.newScenarios.size() == 1 ? "scenario " : "scenarios ") + names + ".";
}

void PrintJson(const session::StudyImportReport& report, std::ostream& out) {
  store::Json studies = store::Json::array();
  for (const session::StudyImportReport::Entry& study : report.studies) {
    studies.push_back({{"file", study.file},
                       {"kind", study.kind},
                       {"name", study.name},
                       {"id", study.id == 0 ? store::Json() : store::Json(study.id)}});
  }
  store::Json problems = store::Json::array();
  for (const session::ImportProblem& problem : report.problems) {
    problems.push_back({{"file", problem.file},
                        {"study", problem.study.empty() ? store::Json() : store::Json(problem.study)},
                        {"reason", problem.reason}});
  }
  out << store::ShownJson({{"outcome", OutcomeWord(report.outcome)},
                           {"studies", studies},
                           {"newScenarios", report.newScenarios},
                           {"problems", problems}})
      << '\n';
}

}  // namespace

std::string ImportProblemText(const session::ImportProblem& problem) {
  return problem.file + ": " + (problem.study.empty() ? "" : problem.study + ": ") + problem.reason;
}

std::string OutcomeText(const session::StudyImportReport& report) {
  const std::string studies = Counted(report.studies.size(), "study is ", "studies are ");
  switch (report.outcome) {
    case Outcome::Good: return studies + "good. Nothing was stored." + ScenarioText(report);
    case Outcome::Imported: return studies + "imported." + ScenarioText(report);
    case Outcome::Refused:
      return Counted(report.problems.size(), "problem", "problems") +
             " found. Nothing was stored. Correct the files, then try again.";
  }
  return {};
}

void PrintStudyImport(const session::StudyImportReport& report, OutputFormat format, std::ostream& out,
                      std::ostream& err) {
  if (format == OutputFormat::Json) return PrintJson(report, out);
  if (report.outcome == Outcome::Imported) {
    for (const session::StudyImportReport::Entry& study : report.studies) {
      out << "Study " << study.id << " \"" << TerminalText(study.name) << "\"\n";
    }
  }
  for (const session::ImportProblem& problem : report.problems)
    err << TerminalText(ImportProblemText(problem)) << '\n';
  (report.outcome == Outcome::Refused ? err : out) << TerminalText(OutcomeText(report)) << '\n';
}

}  // namespace kiv::client
