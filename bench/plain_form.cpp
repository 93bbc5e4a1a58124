#include "plain_form.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

namespace kiv::bench {

QWidget* Scrolled(QWidget* page) {
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidget(page);
  return scroll;
}

QHBoxLayout* RowOf(std::initializer_list<QWidget*> widgets) {
  auto* row = new QHBoxLayout;
  for (QWidget* widget : widgets) row->addWidget(widget);
  return row;
}

QLineEdit* NumberBox(const QString& text, int low, int high, QWidget* parent) {
  auto* box = new QLineEdit(text, parent);
  box->setValidator(new QIntValidator(low, high, box));
  return box;
}

void AddScenarioAndDestination(QBoxLayout& column, const PlainValues& values, QWidget* page) {
  auto* scenario = new QComboBox(page);
  scenario->addItems(values.scenarios);
  auto* newScenario = new QPushButton(QStringLiteral("&New..."), page);
  auto* top = new QFormLayout;
  top->addRow(QStringLiteral("S&cenario:"), RowOf({scenario, newScenario}));

  auto* group = new QGroupBox(QStringLiteral("Data File Destination"), page);
  auto* folder = new QLineEdit(values.folder, group);
  auto* browse = new QPushButton(QStringLiteral("&Browse..."), group);
  auto* file = new QLineEdit(values.file, group);
  auto* extension = new QLabel(values.extension, group);
  auto* preview = new QLabel(QStringLiteral("Now: ") + values.file, group);
  auto* destination = new QFormLayout(group);
  destination->addRow(QStringLiteral("F&older:"), RowOf({folder, browse}));
  destination->addRow(QStringLiteral("File n&ame:"), RowOf({file, extension}));
  destination->addRow(QString(), preview);
  QObject::connect(file, &QLineEdit::textChanged, preview,
                   [preview](const QString& text) { preview->setText(QStringLiteral("Now: ") + text); });
  column.addLayout(top);
  column.addWidget(group);
}

QWidget* FormAround(const PlainValues& values, const std::vector<std::pair<QWidget*, QString>>& pages) {
  auto* form = new QWidget;
  auto* name = new QLineEdit(values.name, form);
  auto* label = new QLabel(QStringLiteral("Stud&y name:"), form);
  label->setBuddy(name);
  auto* tabs = new QTabWidget(form);
  for (const auto& [page, title] : pages) tabs->addTab(page, title);
  auto* top = RowOf({label, name});
  auto* bottom =
      RowOf({new QLabel(QStringLiteral("Study 1"), form), new QPushButton(QStringLiteral("Chec&k"), form),
             new QPushButton(QStringLiteral("Save as Co&py..."), form),
             new QPushButton(QStringLiteral("Sa&ve"), form)});
  auto* all = new QVBoxLayout(form);
  all->addLayout(top);
  all->addWidget(tabs, 1);
  all->addLayout(bottom);
  return form;
}

}  // namespace kiv::bench
