// What the window does with stored studies beside opening them: files and history.

#include <QFileDialog>
#include <QMenu>
#include <QTableView>

#include "client/window/editor_view.h"
#include "client/window/history_dialog.h"
#include "client/window/main_window.h"
#include "client/window/question.h"
#include "client/window/study_import_dialog.h"
#include "client/window/study_list.h"
#include "session/study_session.h"
#include "store/exchange/study_files.h"
#include "store/studies/study_export.h"

namespace kiv::client {

namespace {

constexpr const char* kExportFilter = "Exported studies (*.json);;All files (*)";

}  // namespace

void MainWindow::AddFileActions(QMenu& study) {
  study.addSeparator();
  historyAction_ = AddAction(study, QStringLiteral("Histor&y..."), QKeySequence(QStringLiteral("Ctrl+H")),
                             [this] { ShowHistory(); });
  databaseActions_.push_back(
      AddAction(study, QStringLiteral("Dele&ted Studies..."), {}, [this] { ShowDeletedStudies(); }));
  databaseActions_.push_back(AddAction(study, QStringLiteral("E&xport..."), {}, [this] {
    const QString file = QFileDialog::getSaveFileName(
        this, QStringLiteral("Export Studies"), QStringLiteral("studies.json"), QLatin1String(kExportFilter));
    if (!file.isEmpty()) ExportStudies(file);
  }));
  databaseActions_.push_back(AddAction(study, QStringLiteral("&Import..."), {}, [this] {
    ImportStudies(QFileDialog::getOpenFileNames(this, QStringLiteral("Import Studies"), {},
                                                QLatin1String(kExportFilter)));
  }));
  writingActions_.push_back(databaseActions_.back());
}

std::optional<std::int32_t> MainWindow::StudyAtHand() const {
  const EditorView* editor = CurrentEditor();
  if (editor) return editor->Session().IsNew() ? std::nullopt : std::optional(editor->Session().ID());
  return SelectedStudies().size() == 1 ? list_->SelectedStudy() : std::nullopt;
}

void MainWindow::ShowHistory() {
  const auto id = StudyAtHand();
  if (id && client::ShowHistory(program_, *id, this)) TakeRestored(*id);
}

void MainWindow::ShowDeletedStudies() {
  for (const std::int32_t id : client::ShowDeletedStudies(program_, this)) TakeRestored(id);
}

void MainWindow::TakeRestored(std::int32_t id) {
  RefreshStudy(id);
  EditorView* editor = FindEditor(id);
  if (!editor) return;
  if (!editor->Session().Modified()) {
    editor->Session().Reload();
    return;
  }
  Question(
      program_, QMessageBox::Information,
      QStringLiteral("The study is restored. Your unsaved changes are still in its editor: save them as a "
                     "copy to keep them, or close the editor to see the restored study."),
      QMessageBox::Ok, this)
      .exec();
}

std::vector<std::int32_t> MainWindow::SelectedStudies() const {
  std::vector<std::int32_t> ids;
  for (const QModelIndex& row : list_->View().selectionModel()->selectedRows(StudyTable::kId)) {
    ids.push_back(row.data().toInt());
  }
  return ids;
}

void MainWindow::ExportStudies(const QString& file) {
  store::WriteStudyFile(file.toStdString(), store::ExportStudies(program_.Store(), SelectedStudies()));
}

void MainWindow::ImportStudies(const QStringList& files) {
  if (!files.isEmpty() && ImportStudiesByDialog(program_, files, this)) RefreshStudies();
}

}  // namespace kiv::client
