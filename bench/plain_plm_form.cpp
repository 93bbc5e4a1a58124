#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "plain_form.h"

namespace kiv::bench {

namespace {

QLabel* TextOn(const QString& text, QWidget* parent) {
  return new QLabel(text, parent);
}

QWidget* PlmGeneralPage(const PlainValues& values) {
  auto* page = new QWidget;
  auto* all = new QVBoxLayout(page);
  AddScenarioAndDestination(*all, values, page);
  auto* group = new QGroupBox(QStringLiteral("Measurement"), page);
  auto* form = new QFormLayout(group);
  form->addRow(QStringLiteral("Study &duration:"),
               RowOf({NumberBox(values.duration, 1, 1440, group), TextOn(QStringLiteral("minutes"), group)}));
  form->addRow(QStringLiteral("&Retrieve delay:"), RowOf({NumberBox(QStringLiteral("1"), 1, 10, group),
                                                          TextOn(QStringLiteral("minutes"), group)}));
  form->addRow(QStringLiteral("Data ta&g:"), new QLineEdit(QStringLiteral("data"), group));
  all->addWidget(group);
  all->addStretch();
  return Scrolled(page);
}

/// The list of modes with the details beside it.
QWidget* ModePage(const QStringList& names, QWidget* page, QGroupBox* details) {
  auto* grid = new QGridLayout;
  for (int row = 0; row < names.size(); ++row) {
    grid->addWidget(new QCheckBox(names[row], page), row, 0);
    auto* selector = new QRadioButton(QStringLiteral("Details"), page);
    selector->setChecked(row == 0);
    grid->addWidget(selector, row, 1);
    grid->addWidget(new QLabel(page), row, 2);
  }
  grid->setColumnStretch(2, 1);
  auto* list = new QVBoxLayout;
  list->addLayout(grid);
  list->addStretch();
  auto* row = new QHBoxLayout;
  row->addLayout(list);
  row->addWidget(details);
  auto* all = new QVBoxLayout(page);
  all->addLayout(row);
  all->addStretch();
  return Scrolled(page);
}

QLabel* WrappedText(const QString& text, QWidget* parent) {
  QLabel* label = TextOn(text, parent);
  label->setWordWrap(true);
  return label;
}

QWidget* CdmaPage() {
  auto* page = new QWidget;
  auto* details = new QGroupBox(QStringLiteral("Details"), page);
  auto* options = new QComboBox(details);
  for (int i = 0; i < 13; ++i) options->addItem(QStringLiteral("(option) 2G Voice Mode Vocoder RC%1").arg(i));
  options->setCurrentIndex(-1);
  auto* types = new QComboBox(details);
  types->addItems({QStringLiteral("(2Gv) 2G Voice"), QStringLiteral("(2G3G) 2G and 3G1X Calls"),
                   QStringLiteral("(3Gv) 3G1X Voice"), QStringLiteral("(3Gd) 3G1X Data")});
  types->setCurrentIndex(-1);
  types->setEnabled(false);
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("C&arrier:"),
               RowOf({NumberBox(QString(), 1, 18, details), TextOn(QStringLiteral("1 to 18"), details)}));
  form->addRow(QStringLiteral("Service &option:"), options);
  form->addRow(QStringLiteral("&Generation type:"), types);
  auto* column = new QVBoxLayout(details);
  column->addWidget(WrappedText(QStringLiteral("Mode   7 FER1:  Reverse Link Frame Error Rate"), details));
  column->addWidget(
      WrappedText(QStringLiteral("The study does not run this mode. Check it to add it."), details));
  column->addLayout(form);
  column->addStretch();
  QStringList names;
  for (int mode = 7; mode <= 15; ++mode) names.push_back(QStringLiteral("Mode %1 CPLM").arg(mode));
  return ModePage(names, page, details);
}

QGroupBox* ChannelGroup(QWidget* parent) {
  auto* group = new QGroupBox(QStringLiteral("C&hannels, one a line"), parent);
  auto* column = new QVBoxLayout(group);
  column->addWidget(new QPlainTextEdit(group));
  column->addWidget(TextOn(QStringLiteral("no channels"), group));
  return group;
}

QFormLayout* MethodRow(const QStringList& methods, QWidget* panel) {
  auto* method = new QComboBox(panel);
  method->addItems(methods);
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("&Method:"), method);
  return form;
}

QWidget* RichPanel(const QStringList& methods, QWidget* parent) {
  auto* panel = new QWidget(parent);
  auto* group = new QGroupBox(QStringLiteral("Automatic Selection"), panel);
  auto* form = new QFormLayout(group);
  for (const char* label : {"&AMPS channels:", "T&DMA channels:", "Total to se&lect:"}) {
    form->addRow(QLatin1String(label),
                 RowOf({NumberBox(QString(), 0, 10, group), TextOn(QStringLiteral("0 to 10"), group)}));
  }
  form->addRow(QString(), RowOf({new QRadioButton(QStringLiteral("E&xpand"), group),
                                 new QRadioButton(QStringLiteral("&Restrict"), group)}));
  auto* sort = new QComboBox(group);
  sort->addItems(
      {QStringLiteral("Member Number"), QStringLiteral("Channel Number"), QStringLiteral("Radio Number")});
  form->addRow(QStringLiteral("Sort &by:"), sort);
  auto* end = new QComboBox(group);
  end->addItems({QStringLiteral("From the Beginning"), QStringLiteral("From the End")});
  form->addRow(QStringLiteral("Sel&ect:"), end);
  form->addRow(QStringLiteral("Cha&nnels from:"),
               RowOf({NumberBox(QString(), 1, 1999, group), TextOn(QStringLiteral("to"), group),
                      NumberBox(QString(), 1, 1999, group)}));
  form->addRow(QString(), RowOf({new QCheckBox(QStringLiteral("Exclude A&CE"), group),
                                 new QPushButton(QStringLiteral("Defa&ults"), group)}));
  auto* column = new QVBoxLayout(panel);
  column->addLayout(MethodRow(methods, panel));
  column->addLayout(RowOf({group, ChannelGroup(panel)}));
  return panel;
}

QWidget* TextPanel(QWidget* parent) {
  auto* panel = new QWidget(parent);
  auto* column = new QVBoxLayout(panel);
  column->addWidget(TextOn(QStringLiteral("This mode has no settings of its own."), panel));
  column->addStretch();
  return panel;
}

QWidget* ListPanel(const QStringList& methods, QWidget* parent) {
  auto* panel = new QWidget(parent);
  auto* column = new QVBoxLayout(panel);
  if (!methods.isEmpty()) column->addLayout(MethodRow(methods, panel));
  column->addWidget(ChannelGroup(panel));
  return panel;
}

QWidget* TdmaPage() {
  const QStringList methods = {QStringLiteral("Automatic Method"), QStringLiteral("Manual Method")};
  auto* page = new QWidget;
  auto* details = new QGroupBox(QStringLiteral("Mode 1"), page);
  auto* panels = new QStackedWidget(details);
  panels->addWidget(TextPanel(panels));
  panels->addWidget(RichPanel(methods, panels));
  panels->addWidget(ListPanel({}, panels));
  panels->addWidget(TextPanel(panels));
  panels->addWidget(RichPanel(methods + QStringList{QStringLiteral("Study All Channels")}, panels));
  panels->addWidget(ListPanel(methods, panels));
  auto* column = new QVBoxLayout(details);
  column->addWidget(
      WrappedText(QStringLiteral("The study does not run this mode. Check it to add it."), details));
  column->addWidget(panels);
  column->addStretch();
  QStringList names;
  for (int mode = 1; mode <= 6; ++mode) names.push_back(QStringLiteral("Mode &%1").arg(mode));
  return ModePage(names, page, details);
}

}  // namespace

QWidget* MakePlainPlmForm(const PlainValues& values) {
  return FormAround(values, {{PlmGeneralPage(values), QStringLiteral("General")},
                             {CdmaPage(), QStringLiteral("CDMA Modes")},
                             {TdmaPage(), QStringLiteral("TDMA/AMPS Modes")}});
}

}  // namespace kiv::bench
