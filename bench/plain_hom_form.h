#pragma once

#include <QString>
#include <QWidget>

namespace kiv::bench {

/// What the plain form shows.
struct PlainValues {
  QString name;
  QStringList scenarios;
  QString folder;
  QString file;
  QString duration;
};

/// The baseline: the pages of a HOM study as a Qt programmer would write them by hand, with the values put
/// straight into the widgets and the same connections between them.
QWidget* MakePlainHomForm(const PlainValues& values);

}  // namespace kiv::bench
