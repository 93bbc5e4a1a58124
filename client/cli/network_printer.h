#pragma once

#include <iosfwd>

#include "client/cli/output_format.h"
#include "store/network/network_import.h"

/// What an import of a network came to, in words for people or as JSON for programs.
namespace kiv::client {

/// Text: results to `out`, what is bad to `err`. JSON: everything to `out`.
void PrintNetworkReport(const store::NetworkReport& report, OutputFormat format, std::ostream& out,
                        std::ostream& err);

/// Shows the progress on the last line of a terminal; says nothing when the stream is none.
store::ImportProgress ProgressOnTerminal(std::ostream& stream);

}  // namespace kiv::client
