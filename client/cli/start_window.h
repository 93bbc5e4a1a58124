#pragma once

#include <iosfwd>

#include "client/arguments.h"

namespace kiv::client {

/// Goes over to the program of the window, which stands beside this one. Returns only when that fails, with
/// the exit code; one message says what to install.
int StartWindow(const WindowRequest& request, std::ostream& err);

}  // namespace kiv::client
