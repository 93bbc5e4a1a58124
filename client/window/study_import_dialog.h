#pragma once

#include <QStringList>

#include "client/program.h"

class QWidget;

namespace kiv::client {

/// Checks the studies of files, lists every problem, and lets the user import them when there is none.
/// Returns whether studies were stored.
bool ImportStudiesByDialog(Program& program, const QStringList& files, QWidget* parent);

}  // namespace kiv::client
