#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

#include "client/cli/output_format.h"
#include "session/study_session.h"
#include "store/studies/study_store.h"

/// Studies as text for people or as JSON for programs.
namespace kiv::client {

void PrintStudies(const store::StudyStore& store, OutputFormat format, std::ostream& out);

/// What belongs to the study's kind is left out when the study has none.
void PrintStudy(const store::Study& study, const std::vector<host::Document>& scenarios, OutputFormat format,
                std::ostream& out);

/// Everything that keeps the study from being saved: its name and every failing check of every tab; and
/// missing data. Returns how many there are.
std::size_t PrintProblems(const session::StudySession& session, OutputFormat format, std::ostream& out);

}  // namespace kiv::client
