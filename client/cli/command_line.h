#pragma once

#include <iosfwd>
#include <optional>
#include <string>

namespace kiv::client {

/// What the user asked the window for.
struct WindowRequest {
  std::optional<std::string> database;  ///< nothing: the default one
};

/// Exit codes of the program.
enum ExitCode : int { kOk = 0, kRefused = 1, kUsage = 2 };

/// Carries out a command line. Returns its exit code, or nothing when the window is wanted, which `window`
/// then describes. Results go to `out`, one message for each refusal to `err`.
std::optional<int> RunCommandLine(int argc, const char* const* argv, WindowRequest& window, std::ostream& out,
                                  std::ostream& err);

}  // namespace kiv::client
