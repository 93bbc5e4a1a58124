#include "client/cli/start_window.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <ostream>
#include <system_error>
#include <vector>

namespace kiv::client {

namespace {

/// Also the name of the package that has it.
constexpr const char* kWindowProgram = "kivstudy-window";

std::filesystem::path FolderOfThisProgram() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace

int StartWindow(const WindowRequest& request, std::ostream& err) {
  std::vector<std::string> arguments = {(FolderOfThisProgram() / kWindowProgram).string()};
  if (request.database) arguments.insert(arguments.end(), {kDatabaseOption, *request.database});
  std::vector<char*> argv;
  argv.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  execv(argv[0], argv.data());
  err << "The window " << arguments[0] << " cannot be started: " << std::generic_category().message(errno)
      << ". Install the package " << kWindowProgram << ", or use the commands: kivstudy --help\n";
  return kRefused;
}

}  // namespace kiv::client
