#include "client/arguments.h"

#include <CLI/CLI.hpp>
#include <string_view>
#include <vector>

#include "database/server_address.h"

namespace kiv::client {

const char* const kVersionText = "kivstudy " KIV_VERSION;

void AddDatabaseOption(CLI::App& command, std::string& database) {
  command
      .add_option(kDatabaseOption, database,
                  "Study database: a file, or the address of a PostgreSQL database such as "
                  "postgresql://user@server/database (default: studies.db in your data folder)")
      ->type_name("DATABASE")
      ->check([](const std::string& file) { return file.empty() ? "the name is missing" : ""; });
}

void HideAddresses(CLI::App& program, int argc, const char* const* argv) {
  program.failure_message([arguments = std::vector<std::string>(argv, argv + argc)](const CLI::App* app,
                                                                                    const CLI::Error& error) {
    std::string message = CLI::FailureMessage::simple(app, error);
    for (std::string_view address : arguments) {
      if (address.starts_with('-')) address.remove_prefix(address.find('=') + 1);
      if (!database::IsServerAddress(address)) continue;
      const std::size_t place = message.find(address);
      if (place != std::string::npos) message.replace(place, address.size(), database::kHiddenAddress);
    }
    return message;
  });
}

}  // namespace kiv::client
