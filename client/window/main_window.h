#pragma once

#include <QMainWindow>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "client/program.h"

class QAction;
class QDockWidget;
class QLabel;
class QStackedWidget;
class QTabWidget;

namespace kiv::session {
class StudySession;
}

namespace kiv::client {

class EditorView;
class EntityTree;
class KeptFile;
class StartPage;
class StudyListPage;

/// The window: the network, the list of studies, and an editor for each open study.
class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Program& program);
  ~MainWindow() override;

  /// Opens a database instead of the one that is open, whose editors are closed; the user may take unsaved
  /// input along. When opening fails or the user stays, nothing changes; the window says why it failed and
  /// what to do.
  void OpenDatabase(const std::string& path, Program::WhenMissing whenMissing);

  /// Opens editors again whose unsaved input was kept when the program was ended.
  void BringBackKeptInput();
  /// Keeps unsaved input in files until the next start; false when not all of it could be kept.
  bool KeepUnsaved();
  /// Closes the window without a question and keeps unsaved input; false when not all of it could be kept.
  bool EndKeepingInput();

  EditorView* NewStudy(const std::string& kind);
  /// Opens a stored study, or goes to its editor when it is open already. Null when it cannot be opened,
  /// which the user has been told.
  EditorView* OpenStudy(std::int32_t id);
  EditorView* CurrentEditor() const;
  StudyListPage& List() { return *list_; }
  EntityTree& Network() { return *network_; }
  /// Lets the user import a network, and shows it.
  void ImportNetwork();
  /// Writes the selected studies to a file, all when none is selected.
  void ExportStudies(const QString& file);
  /// Checks the studies of files and lets the user import them.
  void ImportStudies(const QStringList& files);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddMenus();
  void AddToolsMenu();
  void AddNetwork();
  void AddFileActions(class QMenu& studyMenu);
  void AddEditorActions(class QMenu& studyMenu);
  QAction* AddAction(class QMenu& menu, const QString& text, const QKeySequence& keys,
                     std::function<void()> run);
  void ChooseDatabase(bool create);
  EditorView* AddEditor(std::unique_ptr<session::StudySession> session);
  EditorView* FindEditor(std::int32_t id) const;
  /// Shows the name of the study on the tab of its editor.
  void ShowTitle(const EditorView& editor);
  bool CloseEditor(int index);
  /// Closes an editor without a question.
  void DropEditor(EditorView& editor);
  bool CloseAllEditors();
  std::vector<EditorView*> UnsavedEditors() const;
  enum class Leaving { TakeAlong, Save, Discard, Stay };
  Leaving AskHowToLeave(std::size_t unsaved);
  std::optional<std::vector<std::string>> LeaveEditors();
  void TakeAlong(const std::vector<std::string>& along);
  /// Its input was stored or given up.
  void ForgetKept(const EditorView& editor);
  void DeleteSelectedStudy();
  /// The stored study of the editor in front, or the one that is selected in the list.
  std::optional<std::int32_t> StudyAtHand() const;
  void ShowHistory();
  void ShowDeletedStudies();
  /// A state of a study came back; what nobody has worked on shows it.
  void TakeRestored(std::int32_t id);
  std::vector<std::int32_t> SelectedStudies() const;
  void RefreshStudies();
  /// The same for one study that was stored or deleted.
  void RefreshStudy(std::int32_t id);
  void ShowStudies();
  void RefreshNetwork();
  void ShowEmptyPage();
  void ShowNoDatabase(const std::string& path, const std::string& problem, bool canCreate);
  void ShowState();
  template <class Action>
  void Guarded(Action action);

  Program& program_;
  QTabWidget* tabs_;
  QStackedWidget* home_;
  StartPage* startPage_;
  StudyListPage* list_;
  QDockWidget* networkDock_;
  EntityTree* network_;
  QLabel* databaseLabel_;
  QLabel* userLabel_;
  std::vector<QAction*> databaseActions_;  // need an open database
  std::vector<QAction*> editorActions_;    // need an open editor
  std::vector<QAction*> listActions_;      // need a selected study
  QAction* historyAction_ = nullptr;       // needs a stored study
  std::vector<QAction*> writingActions_;   // of those above, what needs a database that can be written
  std::map<const EditorView*, std::unique_ptr<KeptFile>> keptFiles_;
  bool endsByItself_ = false;
  ScopedConnection settingsChanged_;
};

}  // namespace kiv::client
