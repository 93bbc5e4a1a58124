#pragma once

#include <string>
#include <vector>

#include "session/study_session.h"

namespace kiv::session {

/// Whether a problem makes a study wrong, or could not be looked into.
enum class Severity { Error, Warning };

/// One thing that is wrong with a study.
struct StudyProblem {
  std::string tab;      ///< its title; "Study" for what belongs to no tab
  std::string control;  ///< the name of the control; empty when there is none
  std::string message;  ///< in one line
  Severity severity = Severity::Error;
};

/// All of them: the name, missing data, every failing check of every tab, stored values that no page makes,
/// and what the stored network says of the study's cells. Without a network there is one warning that its
/// cells were not looked up. A database that fails raises host::DatabaseError.
std::vector<StudyProblem> ProblemsOf(StudySession& session);

/// The same of a study that nobody edits; nothing is told in message boxes.
std::vector<StudyProblem> CheckStudy(store::StudyStore& store, store::Study study);

/// `Tab: message`; a warning says so.
std::string ProblemText(const StudyProblem& problem);

/// Whether any of them makes the study wrong.
bool HasErrors(const std::vector<StudyProblem>& problems);

}  // namespace kiv::session
