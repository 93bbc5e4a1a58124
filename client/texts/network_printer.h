#pragma once

#include <iosfwd>
#include <string>

#include "client/texts/study_printer.h"
#include "store/network/network_import.h"

/// What an import of a network came to, in words for people or as JSON for programs.
namespace kiv::client {

/// A bad line as compilers name one: `file:line: reason`.
std::string BadLineText(const store::BadLine& badLine);

/// One or two sentences on the whole.
std::string OutcomeText(const store::NetworkReport& report);

/// Text: results to `out`, what is bad to `err`. JSON: everything to `out`.
void PrintNetworkReport(const store::NetworkReport& report, OutputFormat format, std::ostream& out,
                        std::ostream& err);

/// Shows the progress on the last line of a terminal; says nothing when the stream is none.
store::ImportProgress ProgressOnTerminal(std::ostream& stream);

}  // namespace kiv::client
