#pragma once

#include <cstddef>
#include <iosfwd>
#include <vector>

#include "client/study_session.h"
#include "client/study_store.h"

/// Studies as text for people or as JSON for programs.
namespace kiv::client {

enum class OutputFormat { Text, Json };

void PrintStudies(const std::vector<StudySummary>& studies, OutputFormat format, std::ostream& out);

void PrintStudy(const Study& study, const std::vector<host::Document>& scenarios, OutputFormat format,
                std::ostream& out);

/// Every failing check of every tab; returns how many there are.
std::size_t PrintProblems(const StudySession& session, OutputFormat format, std::ostream& out);

}  // namespace kiv::client
