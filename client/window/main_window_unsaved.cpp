// How unsaved input gets from one database to another, and over the end of the program.

#include <QCloseEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <iostream>

#include "client/window/editor_view.h"
#include "client/window/kept_file.h"
#include "client/window/main_window.h"
#include "client/window/messages.h"
#include "client/window/question.h"
#include "session/kept_input.h"
#include "store/store_error.h"

namespace kiv::client {

std::vector<EditorView*> MainWindow::UnsavedEditors() const {
  std::vector<EditorView*> unsaved;
  for (int i = 1; i < tabs_->count(); ++i) {
    auto* editor = static_cast<EditorView*>(tabs_->widget(i));
    if (editor->Session().Modified()) unsaved.push_back(editor);
  }
  return unsaved;
}

MainWindow::Leaving MainWindow::AskHowToLeave(std::size_t unsaved) {
  const QString what = unsaved == 1 ? QStringLiteral("A study has unsaved changes.")
                                    : QStringLiteral("%L1 studies have unsaved changes.").arg(unsaved);
  Question question(
      program_, QMessageBox::Question,
      what + QStringLiteral(" Take them along into the database that you open? They are saved there, as new "
                            "studies if it does not have them."),
      QMessageBox::Discard | QMessageBox::Cancel, this);
  auto* along = question.addButton(QStringLiteral("&Take Along"), QMessageBox::AcceptRole);
  const QPushButton* save =
      program_.IsReadOnly() ? nullptr
                            : question.addButton(QStringLiteral("&Save Here First"), QMessageBox::YesRole);
  question.setDefaultButton(along);
  question.exec();
  const QAbstractButton* const chosen = question.clickedButton();
  if (chosen == along) return Leaving::TakeAlong;
  if (save && chosen == save) return Leaving::Save;
  return chosen == question.button(QMessageBox::Discard) ? Leaving::Discard : Leaving::Stay;
}

/// Closes every editor. Nothing when the user stays; else what is to be taken along.
std::optional<std::vector<std::string>> MainWindow::LeaveEditors() {
  std::vector<std::string> along;
  if (const auto unsaved = UnsavedEditors(); !unsaved.empty()) {
    const Leaving leaving = AskHowToLeave(unsaved.size());
    if (leaving == Leaving::Stay) return std::nullopt;
    for (EditorView* editor : unsaved) {
      if (leaving == Leaving::TakeAlong) along.push_back(session::KeptInput(editor->Session()));
      if (leaving != Leaving::Save) continue;
      tabs_->setCurrentWidget(editor);
      if (!editor->Save()) return std::nullopt;
    }
  }
  while (tabs_->count() > 1) DropEditor(*static_cast<EditorView*>(tabs_->widget(1)));
  return along;
}

void MainWindow::TakeAlong(const std::vector<std::string>& along) {
  for (const std::string& kept : along) {
    try {
      AddEditor(session::SessionOfKept(program_.Store(), kept));
    } catch (const std::exception& error) {
      // One that cannot even be kept must not take the others with it.
      try {
        const auto file = KeptFile::Make();
        file->Write(kept);
        Tell("The unsaved study \"" + session::NameOfKept(kept) +
             "\" could not be taken along: " + store::FailureText(error) + " It is kept in " + file->Path() +
             " and comes back when its database is opened next time.");
      } catch (const std::exception& notKept) {
        TellFailure(notKept);
      }
    }
  }
}

void MainWindow::BringBackKeptInput() {
  int count = 0;
  for (auto& file : KeptFile::Found()) {
    try {
      const std::string kept = file->Read();
      if (session::DatabaseOfKept(kept) != program_.Store().Database().Name()) continue;
      const EditorView* editor = AddEditor(session::SessionOfKept(program_.Store(), kept));
      keptFiles_[editor] = std::move(file);
      ++count;
    } catch (const std::exception& error) {
      Tell("Unsaved input that was kept in " + file->Path() +
           " cannot be brought back: " + store::FailureText(error));
    }
  }
  if (count == 0) return;
  const QString text =
      count == 1 ? QStringLiteral(
                       "A study with unsaved changes was kept when the program was ended. It is open again: "
                       "save or close it.")
                 : QStringLiteral(
                       "%L1 studies with unsaved changes were kept when the program was ended. They are open "
                       "again: save or close them.")
                       .arg(count);
  Question(program_, QMessageBox::Information, text, QMessageBox::Ok, this).exec();
}

bool MainWindow::KeepUnsaved() {
  bool all = true;
  for (EditorView* editor : UnsavedEditors()) {
    try {
      auto file = keptFiles_.find(editor);
      if (file == keptFiles_.end()) file = keptFiles_.emplace(editor, KeptFile::Make()).first;
      file->second->Write(session::KeptInput(editor->Session()));
    } catch (const std::exception& error) {
      std::cerr << "kivstudy: unsaved input cannot be kept: " << error.what() << '\n';
      all = false;
    }
  }
  return all;
}

void MainWindow::ForgetKept(const EditorView& editor) {
  const auto found = keptFiles_.find(&editor);
  if (found == keptFiles_.end()) return;
  found->second->Remove();
  keptFiles_.erase(found);
}

bool MainWindow::EndKeepingInput() {
  endsByItself_ = true;
  const bool closed = close();
  endsByItself_ = false;
  return closed;
}

}  // namespace kiv::client
