#include <CLI/CLI.hpp>

#include "client/arguments.h"
#include "client/window/window_program.h"

int main(int argc, char** argv) {
  using namespace kiv::client;
  std::string database;
  CLI::App app("Edits KIV studies in a window.", "kivstudy-window");
  app.set_version_flag("--version", kVersionText);
  AddDatabaseOption(app, database);
  HideAddresses(app, argc, argv);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kOk : kUsage;
  }
  WindowRequest request;
  if (!database.empty()) request.database = database;
  return RunWindow(argc, argv, request);
}
