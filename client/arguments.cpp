#include "client/arguments.h"

#include <CLI/CLI.hpp>

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

}  // namespace kiv::client
