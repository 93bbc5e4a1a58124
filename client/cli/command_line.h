#pragma once

#include <iosfwd>
#include <optional>

#include "client/arguments.h"

namespace kiv::client {

/// Carries out a command line. Returns its exit code, or nothing when the window is wanted, which `window`
/// then describes. Results go to `out`, one message for each refusal to `err`.
std::optional<int> RunCommandLine(int argc, const char* const* argv, WindowRequest& window, std::ostream& out,
                                  std::ostream& err);

}  // namespace kiv::client
