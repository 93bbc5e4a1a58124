#pragma once

#include <string>

#include "session/study_import.h"
#include "store/network/network_import.h"

/// What imports of a network and of studies came to, in words.
namespace kiv::client {

/// A bad line as compilers name one: `file:line: reason`.
std::string BadLineText(const store::BadLine& badLine);
/// `file: study 2 "Night": reason`
std::string ImportProblemText(const session::ImportProblem& problem);

/// One or two sentences on the whole; of studies, one more on the scenarios that are new.
std::string OutcomeText(const store::NetworkReport& report);
std::string OutcomeText(const session::StudyImportReport& report);

}  // namespace kiv::client
