#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "base/signal.h"
#include "client/program.h"
#include "host/drag_source.h"
#include "session/study_problems.h"
#include "session/study_session.h"
#include "ui/page_plan.h"

class QLabel;
class QLineEdit;
class QTabWidget;

namespace kiv::qt {
class PageView;
}

namespace kiv::client {

/// A study in the window: its name, a page for each tab, live marks on what is wrong, and its buttons.
class EditorView : public QWidget {
 public:
  EditorView(Program& program, std::unique_ptr<session::StudySession> session, QWidget* parent = nullptr);
  ~EditorView() override;

  session::StudySession& Session() { return *session_; }
  const session::StudySession& Session() const { return *session_; }

  /// Stores the study. A refusal or a failure is told to the user, whose input stays; false then.
  bool Save();
  /// Asks for a name and stores a copy.
  bool SaveCopy();
  /// Checks every page; tells the first problem or that all is well.
  void Check();
  /// Asks about unsaved input. False when the user wants to stay.
  bool MayClose();

  /// Whether a page of this study takes entities of the network.
  bool TakesEntities() const;
  /// Gives entities of the network to the page that takes them, as if they had been dropped there.
  void AddEntities(const std::vector<host::DraggedNode>& nodes);

  /// The pages in the order of the session's tabs.
  const std::vector<qt::PageView*>& Pages() const { return pages_; }

  /// The study's name changed, or whether there is unsaved input.
  Signal<> TitleChanged;
  Signal<> Stored;

 private:
  struct DropTarget;

  void AddPages();
  DropTarget FindDropTarget() const;
  void ShowTab(const std::string& name);
  void ShowState();
  void StartMarking();
  std::vector<ui::Mark> MarksOf(Tab& tab) const;
  void ShowMarks();
  void TellFindings(const std::vector<session::StudyProblem>& problems);
  template <class Action>
  bool Attempt(Action action);
  void ResolveConflict(const store::StudyConflict& conflict);
  bool StoreCopy();

  Program& program_;
  std::unique_ptr<session::StudySession> session_;
  QLineEdit* name_;
  QLabel* state_;
  QTabWidget* tabs_;
  qt::PageView* header_ = nullptr;
  std::vector<qt::PageView*> pages_;
  QTimer markTimer_;
  bool marking_ = false;  // whether checks are marked: a form that nobody touched is not full of complaints
};

}  // namespace kiv::client
