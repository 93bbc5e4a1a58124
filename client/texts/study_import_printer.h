#pragma once

#include <iosfwd>
#include <string>

#include "client/texts/study_printer.h"
#include "session/study_import.h"

/// What an import of studies came to, in words for people or as JSON for programs.
namespace kiv::client {

/// `file: study 2 "Night": reason`
std::string ImportProblemText(const session::ImportProblem& problem);

/// One or two sentences on the whole, and one on the scenarios that are new.
std::string OutcomeText(const session::StudyImportReport& report);

/// Text: results to `out`, what is wrong to `err`. JSON: everything to `out`.
void PrintStudyImport(const session::StudyImportReport& report, OutputFormat format, std::ostream& out,
                      std::ostream& err);

}  // namespace kiv::client
