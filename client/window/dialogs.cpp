#include "client/window/dialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <exception>

#include "client/window/messages.h"
#include "host/constants.h"

namespace kiv::client {

namespace {

class ScenariosDialog : public QDialog {
 public:
  ScenariosDialog(Program& program, QWidget* parent)
      : QDialog(parent), program_(program), list_(new QListWidget(this)) {
    setWindowTitle(QStringLiteral("Scenarios"));
    list_->setAccessibleName(QStringLiteral("Scenarios"));
    auto* add = new QPushButton(QStringLiteral("&New..."), this);
    rename_ = new QPushButton(QStringLiteral("&Rename..."), this);
    remove_ = new QPushButton(QStringLiteral("&Delete"), this);
    auto* close = new QPushButton(QStringLiteral("&Close"), this);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {add, rename_, remove_}) {
      button->setAutoDefault(false);
      buttons->addWidget(button);
    }
    buttons->addStretch();
    buttons->addWidget(close);
    auto* text = new QLabel(QStringLiteral("Every study belongs to a scenario."), this);
    auto* row = new QHBoxLayout;
    row->addWidget(list_, 1);
    row->addLayout(buttons);
    auto* all = new QVBoxLayout(this);
    all->addWidget(text);
    all->addLayout(row);

    connect(add, &QPushButton::clicked, this, [this] { Add(); });
    connect(rename_, &QPushButton::clicked, this, [this] { Rename(); });
    connect(remove_, &QPushButton::clicked, this, [this] { Remove(); });
    connect(list_, &QListWidget::itemActivated, this, [this] { Rename(); });
    connect(list_, &QListWidget::currentRowChanged, this, [this] { ShowChoices(); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    Fill(0);
  }

 private:
  void Fill(std::int32_t selected) {
    list_->clear();
    for (const host::Document& scenario : program_.Store().Scenarios().List()) {
      auto* item = new QListWidgetItem(QString::fromStdString(scenario.name), list_);
      item->setData(Qt::UserRole, scenario.id);
      if (scenario.id == selected) list_->setCurrentItem(item);
    }
    if (!list_->currentItem()) list_->setCurrentRow(0);
    ShowChoices();
  }

  void ShowChoices() {
    rename_->setEnabled(list_->currentItem() != nullptr);
    remove_->setEnabled(list_->currentItem() != nullptr);
  }

  std::int32_t SelectedID() const { return list_->currentItem()->data(Qt::UserRole).toInt(); }

  /// Runs a change until it succeeds or the user gives up; what the store refuses can be corrected.
  template <class Change>
  void AskName(const QString& title, QString name, Change change) {
    for (;;) {
      const auto chosen = AskForName(this, title, QStringLiteral("&Name of the scenario:"), name);
      if (!chosen) return;
      name = QString::fromStdString(*chosen);
      try {
        Fill(change(*chosen));
        program_.AnnounceScenarios();
        return;
      } catch (const std::exception& error) {
        TellFailure(error);
      }
    }
  }

  void Add() {
    AskName(QStringLiteral("New Scenario"), {}, [this](const std::string& name) {
      return program_.Store().Scenarios().Add(name, program_.UserName());
    });
  }

  void Rename() {
    AskName(QStringLiteral("Rename Scenario"), list_->currentItem()->text(), [this](const std::string& name) {
      const std::int32_t id = SelectedID();
      program_.Store().Scenarios().Rename(id, name, program_.UserName());
      return id;
    });
  }

  void Remove() {
    try {
      program_.Store().Scenarios().Remove(SelectedID(), program_.UserName());
      Fill(0);
      program_.AnnounceScenarios();
    } catch (const std::exception& error) {
      TellFailure(error);
    }
  }

  Program& program_;
  QListWidget* list_;
  QPushButton* rename_ = nullptr;
  QPushButton* remove_ = nullptr;
};

}  // namespace

std::optional<std::string> AskForName(QWidget* parent, const QString& title, const QString& label,
                                      const QString& proposal) {
  constexpr int kCharacters = 60;
  QInputDialog dialog(parent);
  dialog.setWindowTitle(title);
  dialog.setLabelText(label);
  dialog.setTextValue(proposal);
  dialog.resize(dialog.fontMetrics().averageCharWidth() * kCharacters, dialog.sizeHint().height());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue().toStdString();
}

void EditScenarios(Program& program, QWidget* parent) {
  ScenariosDialog(program, parent).exec();
}

void EditSettings(Program& program, QWidget* parent) {
  UserSettings& settings = program.Settings();
  QDialog dialog(parent);
  dialog.setWindowTitle(QStringLiteral("Settings"));
  auto* title = new QLineEdit(QString::fromStdString(settings.ApplicationTitle()), &dialog);
  title->setObjectName(QStringLiteral("applicationTitle"));
  auto* mask = new QLineEdit(QString::fromStdString(settings.General(host::kPhoneNumberMask)), &dialog);
  mask->setObjectName(QStringLiteral("phoneNumberMask"));
  mask->setPlaceholderText(QStringLiteral("no mask"));
  auto* maskHelp = new QLabel(
      QStringLiteral("# stands for a digit, every other character for itself,\nsuch as ###-####."), &dialog);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  auto* form = new QFormLayout(&dialog);
  form->addRow(QStringLiteral("Application &title:"), title);
  form->addRow(QStringLiteral("&Phone number mask:"), mask);
  form->addRow(QString(), maskHelp);
  form->addRow(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  if (dialog.exec() != QDialog::Accepted) return;
  settings.SetApplicationTitle(title->text().trimmed().toStdString());
  settings.SetGeneral(host::kPhoneNumberMask, mask->text().toStdString());
}

}  // namespace kiv::client
