#pragma once

#include <iosfwd>

#include "client/cli/output_format.h"
#include "session/study_import.h"

/// What an import of studies came to, in words for people or as JSON for programs.
namespace kiv::client {

/// Text: results to `out`, what is wrong to `err`. JSON: everything to `out`.
void PrintStudyImport(const session::StudyImportReport& report, OutputFormat format, std::ostream& out,
                      std::ostream& err);

}  // namespace kiv::client
