#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTabWidget>
#include <functional>
#include <memory>
#include <string>

#include "support/program_window.h"
#include "support/user_hand.h"

namespace kiv::client {

/// The program's window and a user in front of it, with a database file of their own.
class Window : public ::testing::Test {
 protected:
  void Open() { window_->OpenDatabase(database_, Program::WhenMissing::Create); }
  /// Chooses an entry of a menu.
  void Trigger(const QString& text) const {
    for (auto* action : window_->findChildren<QAction*>()) {
      if (action->text().remove('&') == text) return action->trigger();
    }
    ADD_FAILURE() << "no action " << text.toStdString();
  }
  /// A new HOM study with valid input.
  void StartStudy() {
    if (program_->Store().Scenarios().List().empty()) program_->Store().Scenarios().Add("Downtown");
    window_->NewStudy("HOM Study");
    user_.Choose("fdocCBScenario", "Downtown");
    user_.Fill("txtPath", QString::fromStdString(folder_.Path()));
  }
  void Save() const { user_.Press(Qt::Key_S, Qt::ControlModifier); }
  void CloseStudy() const { user_.Press(Qt::Key_W, Qt::ControlModifier); }
  void StoreStudy(const QString& name = "New HOM Study") {
    StartStudy();
    user_.Fill("studyName", name);
    Save();
    CloseStudy();
  }
  std::string RefusalOfSave() {
    return user_.MessageDuring([this] { Save(); }).toStdString();
  }
  /// The list of studies, and a page for each that is open.
  QTabWidget& Editors() { return *qobject_cast<QTabWidget*>(window_->centralWidget()); }
  std::string FocusName() const {
    const QWidget* focused = window_->focusWidget();
    return focused ? focused->objectName().toStdString() : "";
  }
  QString Preview() const { return qobject_cast<QLabel*>(user_.Find("lblPreview"))->text(); }
  QString StartText() const { return window_->findChild<QLabel*>("startText")->text(); }
  /// Presses the button of a question that an action asks.
  void Answer(const std::function<void()>& action, const QString& button) {
    user_.During(action, [&](QWidget& dialog) { PressButton(dialog, button); });
  }
  static void PressButton(QWidget& dialog, const QString& text) {
    for (auto* button : dialog.findChildren<QAbstractButton*>()) {
      if (button->text().remove('&') == text) return button->click();
    }
    ADD_FAILURE() << "no button " << text.toStdString();
    dialog.close();
  }

  test::TempFolder folder_;
  std::string database_ = folder_.File("studies.db");
  test::ProgramWindow shown_;
  Program* const program_ = &shown_.program;
  std::unique_ptr<MainWindow>& window_ = shown_.window;
  UserHand user_{qEnvironmentVariable("KIV_PICTURES")};
};

}  // namespace kiv::client
