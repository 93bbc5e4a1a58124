#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <vector>

#include "plain_form.h"

namespace kiv::bench {

namespace {

QWidget* GeneralPage(const PlainValues& values) {
  auto* page = new QWidget;
  auto* all = new QVBoxLayout(page);
  AddScenarioAndDestination(*all, values, page);
  auto* bottom = new QFormLayout;
  bottom->addRow(QStringLiteral("Study &duration:"), RowOf({NumberBox(values.duration, 10, 1439, page),
                                                            new QLabel(QStringLiteral("minutes"), page)}));
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
  return FormAround(values, {{GeneralPage(values), QStringLiteral("General")},
                             {DetailPage(), QStringLiteral("Detail")},
                             {CurrentStudyPage(), QStringLiteral("Current Study")}});
}

}  // namespace kiv::bench
