#pragma once

#include "client/program.h"

class QWidget;

namespace kiv::client {

/// Lets the user check and import the CSV files of a network. Returns whether the stored network changed.
bool ImportNetworkByDialog(Program& program, QWidget* parent);

}  // namespace kiv::client
