#include "client/texts/import_text.h"

#include <cstddef>

namespace kiv::client {

namespace {

std::string Counted(std::size_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

/// Tells which scenarios an import makes, or made.
std::string ScenarioText(const session::StudyImportReport& report) {
  using Outcome = session::StudyImportReport::Outcome;
  if (report.newScenarios.empty() || report.outcome == Outcome::Refused) return {};
  std::string names;
  for (const std::string& name : report.newScenarios) names += (names.empty() ? "\"" : ", \"") + name + "\"";
  return (report.outcome == Outcome::Good ? " An import makes the " : " It made the ") +
         std::string(report.newScenarios.size() == 1 ? "scenario " : "scenarios ") + names + ".";
}

}  // namespace

std::string BadLineText(const store::BadLine& badLine) {
  const std::string place =
      badLine.line == 0 ? badLine.file : badLine.file + ":" + std::to_string(badLine.line);
  return place + ": " + badLine.reason;
}

std::string ImportProblemText(const session::ImportProblem& problem) {
  return problem.file + ": " + (problem.study.empty() ? "" : problem.study + ": ") + problem.reason;
}

std::string OutcomeText(const store::NetworkReport& report) {
  using Outcome = store::NetworkReport::Outcome;
  switch (report.outcome) {
    case Outcome::Good: return "Every line is good. Nothing was written.";
    case Outcome::Imported: return "The network is imported.";
    case Outcome::Refused:
      return Counted(report.badLines.size(), "fault", "faults") +
             " found. Nothing was imported; the network is as it was. Correct the files, then try again.";
    case Outcome::Cancelled: return "Cancelled. Nothing was imported; the network is as it was.";
  }
  return {};
}

std::string OutcomeText(const session::StudyImportReport& report) {
  using Outcome = session::StudyImportReport::Outcome;
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

}  // namespace kiv::client
