#pragma once

#include <iosfwd>
#include <vector>

#include "client/cli/output_format.h"
#include "client/texts/history_text.h"

/// The history of studies as text for people or as JSON for programs.
namespace kiv::client {

void PrintHistory(const std::vector<HistoryStep>& steps, OutputFormat format, std::ostream& out);
/// One entry, field by field.
void PrintDifferences(const std::vector<store::StudyDifference>& differences, OutputFormat format,
                      std::ostream& out);
void PrintDeletedStudies(const std::vector<store::HistoryEntry>& studies, OutputFormat format,
                         std::ostream& out);

}  // namespace kiv::client
