#pragma once

#include <string>
#include <vector>

#include "host/message_box.h"
#include "session/study_session.h"

namespace kiv::session {

/// One thing that keeps a study from being saved.
struct StudyProblem {
  std::string tab;      ///< its title; "Study" for what belongs to no tab
  std::string control;  ///< the name of the control; empty when there is none
  std::string message;  ///< in one line
  host::MessageStyle style = host::MessageStyle::Critical;
};

/// All of them: the name, every failing check of every tab, and missing data.
std::vector<StudyProblem> ProblemsOf(const StudySession& session);

/// `Tab: message`
std::string ProblemText(const StudyProblem& problem);

}  // namespace kiv::session
