#pragma once

#include "client/program.h"

class QWidget;

namespace kiv::client {

/// Lets the user make, rename and remove scenarios.
void EditScenarios(Program& program, QWidget* parent);

/// Lets the user change the settings.
void EditSettings(Program& program, QWidget* parent);

}  // namespace kiv::client
