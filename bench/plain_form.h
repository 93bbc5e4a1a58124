#pragma once

#include <QString>
#include <QStringList>
#include <initializer_list>
#include <utility>
#include <vector>

class QBoxLayout;
class QHBoxLayout;
class QLineEdit;
class QWidget;

/// The baselines: study editors as a Qt programmer would write them by hand, with the values put straight
/// into the widgets and the same connections between them.
namespace kiv::bench {

/// What a plain form shows.
struct PlainValues {
  QString name;
  QStringList scenarios;
  QString folder;
  QString file;
  QString extension;
  QString duration;
};

QWidget* MakePlainHomForm(const PlainValues& values);
QWidget* MakePlainPlmForm(const PlainValues& values);

// What the forms have in common.
QWidget* Scrolled(QWidget* page);
QHBoxLayout* RowOf(std::initializer_list<QWidget*> widgets);
/// The rows for scenario and data file.
void AddScenarioAndDestination(QBoxLayout& column, const PlainValues& values, QWidget* page);
QLineEdit* NumberBox(const QString& text, int low, int high, QWidget* parent);
/// The name above the pages and the buttons below them.
QWidget* FormAround(const PlainValues& values, const std::vector<std::pair<QWidget*, QString>>& pages);

}  // namespace kiv::bench
