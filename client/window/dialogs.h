#pragma once

#include <QString>
#include <optional>
#include <string>

#include "client/program.h"

class QWidget;

namespace kiv::client {

/// Asks for a name in a box that shows a long one whole; nothing when the user changed his mind.
std::optional<std::string> AskForName(QWidget* parent, const QString& title, const QString& label,
                                      const QString& proposal = {});

/// Lets the user make, rename and remove scenarios.
void EditScenarios(Program& program, QWidget* parent);

/// Lets the user change the settings.
void EditSettings(Program& program, QWidget* parent);

}  // namespace kiv::client
