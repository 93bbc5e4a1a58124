// Writes the CSV files of a made-up network of any size, ready for `kivstudy import-network`.

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "samples/network_maker.h"

int main(int argc, char** argv) {
  kiv::samples::NetworkSize size;
  std::string folder;
  CLI::App app("Makes a network; the same numbers always make the same one.", "kivstudy_make_network");
  app.option_defaults()->always_capture_default();
  app.add_option("DIR", folder, "Folder for the CSV files, made when it is missing")->required();
  app.add_option("--systems", size.systems, "Number of systems");
  app.add_option("--ecps", size.ecps, "Number of ECPs over all systems");
  app.add_option("--cells", size.cells, "Number of cells over all ECPs");
  app.add_option("--seed", size.seed, "Another number makes another network");
  CLI11_PARSE(app, argc, argv);
  try {
    kiv::samples::WriteNetwork(size, folder);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
