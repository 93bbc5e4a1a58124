#include <iostream>

#include "client/cli/command_line.h"
#include "client/cli/start_window.h"

int main(int argc, char** argv) {
  using namespace kiv::client;
  std::ios::sync_with_stdio(false);
  WindowRequest window;
  if (const auto exitCode = RunCommandLine(argc, argv, window, std::cout, std::cerr)) return *exitCode;
  return StartWindow(window, std::cerr);
}
