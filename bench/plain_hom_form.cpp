#include "plain_hom_form.h"

#include <QCheckBox>
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
#include <vector>

namespace kiv::bench {

namespace {

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

QWidget* GeneralPage(const PlainValues& values) {
  auto* page = new QWidget;
  auto* scenario = new QComboBox(page);
  scenario->addItems(values.scenarios);
  auto* newScenario = new QPushButton(QStringLiteral("&New..."), page);
  auto* top = new QFormLayout;
  top->addRow(QStringLiteral("&Scenario:"), RowOf({scenario, newScenario}));

  auto* group = new QGroupBox(QStringLiteral("Data File Destination"), page);
  auto* folder = new QLineEdit(values.folder, group);
  auto* browse = new QPushButton(QStringLiteral("&Browse..."), group);
  auto* file = new QLineEdit(values.file, group);
  auto* extension = new QLabel(QStringLiteral(".hom"), group);
  auto* preview = new QLabel(QStringLiteral("Now: ") + values.file, group);
  auto* destination = new QFormLayout(group);
  destination->addRow(QStringLiteral("&Folder:"), RowOf({folder, browse}));
  destination->addRow(QStringLiteral("File n&ame:"), RowOf({file, extension}));
  destination->addRow(QString(), preview);
  QObject::connect(file, &QLineEdit::textChanged, preview,
                   [preview](const QString& text) { preview->setText(QStringLiteral("Now: ") + text); });

  auto* duration = new QLineEdit(values.duration, page);
  duration->setValidator(new QIntValidator(10, 1439, duration));
  auto* minutes = new QLabel(QStringLiteral("minutes"), page);
  auto* bottom = new QFormLayout;
  bottom->addRow(QStringLiteral("Study &duration:"), RowOf({duration, minutes}));

  auto* all = new QVBoxLayout(page);
  all->addLayout(top);
  all->addWidget(group);
  all->addLayout(bottom);
  all->addStretch();
  return Scrolled(page);
}

QGroupBox* BoxGroup(const QString& title, const QStringList& captions, QWidget* page) {
  auto* group = new QGroupBox(title, page);
  auto* column = new QVBoxLayout(group);
  std::vector<QCheckBox*> boxes;
  for (const QString& caption : captions) {
    boxes.push_back(new QCheckBox(caption, group));
    column->addWidget(boxes.back());
  }
  auto* all = new QPushButton(QStringLiteral("Select All"), group);
  QObject::connect(all, &QPushButton::clicked, group, [boxes] {
    for (QCheckBox* box : boxes) box->setChecked(true);
  });
  auto* row = new QHBoxLayout;
  row->addWidget(all);
  row->addStretch();
  column->addLayout(row);
  column->addStretch();
  return group;
}

QWidget* DetailPage() {
  auto* page = new QWidget;
  auto* mode = new QComboBox(page);
  mode->addItems({QStringLiteral("Normal"), QStringLiteral("TDMA Heat"), QStringLiteral("CDMA Heat")});
  auto* top = new QFormLayout;
  top->addRow(QStringLiteral("&Mode:"), RowOf({mode}));
  auto* amps = new QCheckBox(QStringLiteral("Handoff to &AMPS"), page);
  amps->setChecked(true);
  auto* groups = new QHBoxLayout;
  groups->addWidget(BoxGroup(QStringLiteral("TDMA Handoff Types"),
                             {QStringLiteral("Handoff from AMPS"), QStringLiteral("Handoff to TDMA/AMPS"),
                              QStringLiteral("Handoff to TDMA"), QStringLiteral("Semi-soft")},
                             page));
  groups->addWidget(BoxGroup(
      QStringLiteral("CDMA Handoff Types"),
      {QStringLiteral("Hard"), QStringLiteral("Handoff to CDMA/AMPS"), QStringLiteral("Semi-soft primary"),
       QStringLiteral("Soft primary"), QStringLiteral("Soft add"), QStringLiteral("Soft drop")},
      page));
  auto* all = new QVBoxLayout(page);
  all->addLayout(top);
  all->addWidget(amps);
  all->addLayout(groups);
  all->addStretch();
  return Scrolled(page);
}

QWidget* CurrentStudyPage() {
  auto* page = new QWidget;
  auto* collect = new QCheckBox(QStringLiteral("Also &collect data for the current standard"), page);
  auto* group = new QGroupBox(QStringLiteral("Data File on the OMP-FX"), page);
  auto* start = new QCheckBox(QStringLiteral("Start on &failure"), group);
  auto* directory = new QLineEdit(group);
  auto* file = new QLineEdit(group);
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("OMP-FX &directory:"), directory);
  form->addRow(QStringLiteral("OMP-FX file &name:"),
               RowOf({file, new QLabel(QStringLiteral(".hom"), group)}));
  auto* column = new QVBoxLayout(group);
  column->addWidget(start);
  column->addLayout(form);
  group->setEnabled(false);
  QObject::connect(collect, &QCheckBox::toggled, group, &QWidget::setEnabled);
  auto* all = new QVBoxLayout(page);
  all->addWidget(collect);
  all->addWidget(group);
  all->addStretch();
  return Scrolled(page);
}

}  // namespace

QWidget* MakePlainHomForm(const PlainValues& values) {
  auto* form = new QWidget;
  auto* name = new QLineEdit(values.name, form);
  auto* label = new QLabel(QStringLiteral("Stud&y name:"), form);
  label->setBuddy(name);
  auto* tabs = new QTabWidget(form);
  tabs->addTab(GeneralPage(values), QStringLiteral("General"));
  tabs->addTab(DetailPage(), QStringLiteral("Detail"));
  tabs->addTab(CurrentStudyPage(), QStringLiteral("Current Study"));
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
