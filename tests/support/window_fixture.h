#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QTabWidget>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/program_window.h"
#include "support/user_hand.h"

namespace kiv::client {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The program's window and a user in front of it, with a database file of their own.
class Window : public ::testing::Test {
 protected:
  void Open() { window_->OpenDatabase(database_, Program::WhenMissing::Create); }
  /// The action or the button that reads so.
  template <class Chosen>
  static Chosen& Reading(const QWidget& window, const QString& text) {
    for (auto* found : window.findChildren<Chosen*>()) {
      if (found->text().remove('&') == text) return *found;
    }
    throw std::runtime_error("nothing reads " + text.toStdString());
  }
  void Trigger(const QString& text) const { Reading<QAction>(*window_, text).trigger(); }
  static void PressButton(const QWidget& dialog, const QString& text) {
    Reading<QAbstractButton>(dialog, text).click();
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
  std::string TextOf(const QString& name) const { return user_.TextOf(name).toStdString(); }
  template <class Widget>
  Widget& The(const QString& name) const {
    return *qobject_cast<Widget*>(user_.Find(name));
  }
  std::vector<store::StudySummary> Stored() const { return program_->Store().List(); }
  /// Presses the button of a question that an action asks.
  void Answer(const std::function<void()>& action, const QString& button) {
    user_.During(action, [&](QWidget& dialog) { PressButton(dialog, button); });
  }

  test::TempFolder folder_;
  std::string database_ = folder_.File("studies.db");
  test::ProgramWindow shown_;
  Program* const program_ = &shown_.program;
  std::unique_ptr<MainWindow>& window_ = shown_.window;
  UserHand user_{qEnvironmentVariable("KIV_PICTURES")};
};

}  // namespace kiv::client
