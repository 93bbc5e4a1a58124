#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
}

/// What the command line and the window are started with.
namespace kiv::client {

/// What the user asked the window for.
struct WindowRequest {
  std::optional<std::string> database;  ///< nothing: the default one
};

/// Exit codes of the programs.
enum ExitCode : int { kOk = 0, kRefused = 1, kUsage = 2 };

inline constexpr const char* kDatabaseOption = "--database";

/// Program and version, as --version prints them.
extern const char* const kVersionText;

/// Lets a program or one of its commands take --database; its place is set before the command is carried out.
void AddDatabaseOption(CLI::App& command, std::string& database);

/// Keeps the passwords of addresses out of what a program says of arguments that it does not understand.
void HideAddresses(CLI::App& program, int argc, const char* const* argv);

}  // namespace kiv::client
