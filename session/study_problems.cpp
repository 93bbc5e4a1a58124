#include "session/study_problems.h"

#include <algorithm>
#include <utility>

namespace kiv::session {

namespace {

constexpr const char* kWholeStudy = "Study";

/// The messages are written for message boxes.
std::string OneLine(std::string text) {
  std::erase(text, '\r');
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

}  // namespace

std::vector<StudyProblem> ProblemsOf(const StudySession& session) {
  std::vector<StudyProblem> problems;
  if (session.Data() == store::KindData::Missing)
    problems.push_back({kWholeStudy, {}, store::MissingDataText(session.ID())});
  if (const auto problem = session.NameProblem()) problems.push_back({kWholeStudy, "studyName", *problem});
  for (const Tab* tab : session.HeaderAndTabs()) {
    for (const Problem& problem : tab->Problems()) {
      problems.push_back({tab->Title(), problem.control->Name(), OneLine(problem.message), problem.style});
    }
  }
  return problems;
}

std::string ProblemText(const StudyProblem& problem) {
  return problem.tab + ": " + problem.message;
}

}  // namespace kiv::session
