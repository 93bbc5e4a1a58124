#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "client/cli/output_format.h"
#include "session/study_problems.h"
#include "store/studies/study_store.h"

/// Studies as text for people or as JSON for programs.
namespace kiv::client {

void PrintStudies(const store::StudyStore& store, OutputFormat format, std::ostream& out);

/// What belongs to the study's kind is left out when the study has none.
void PrintStudy(const store::Study& study, const std::vector<host::Document>& scenarios, OutputFormat format,
                std::ostream& out);

/// What is wrong with a stored study, or that it is valid.
void PrintProblems(std::int32_t id, const std::vector<session::StudyProblem>& problems, OutputFormat format,
                   std::ostream& out);

}  // namespace kiv::client
