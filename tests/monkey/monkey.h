#pragma once

#include <QPointer>
#include <QString>
#include <atomic>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "client/window/editor_view.h"
#include "client/window/main_window.h"

class QAbstractButton;
class QAction;
class QMessageBox;

namespace kiv::test {

/// A user who knows nothing and tries everything: random keys, clicks, pastes, drops, menu entries and
/// answers to dialogs at the program's window. The same seed does the same things.
///
/// It raises std::runtime_error when an editor with unsaved input is gone and nobody asked about it.
class Monkey {
 public:
  Monkey(client::Program& program, client::MainWindow& window, std::uint64_t seed);

  /// Does as many things, one after another, also while a dialog or a menu is open, and then closes what is
  /// open.
  void Play(int events);

  /// How many things were done so far; a watchdog may look from another thread.
  int Done() const { return done_; }
  /// The last things done, for whoever has to find out what went wrong.
  std::string Story() const;
  /// How often each kind of thing was done.
  const std::map<std::string, int>& Counts() const { return counts_; }

 private:
  struct Act {
    const char* name;
    int weight;
    void (Monkey::*run)();
  };

  void Next();
  void RunAct(const Act& act);
  void CloseDialogs();
  void WatchEditors();
  void Tell(const std::string& what);

  void PressKey();
  void PressShortcut();
  void TypeText();
  void PasteText();
  void ClickWidget();
  void OpenContextMenu();
  void ChooseEntry();
  void TriggerAction();
  void DropEntities();
  void OpenSomeStudy();
  void ShowPage();
  void AnswerDialog();
  void ResizeWindow();

  int Below(std::size_t count) { return static_cast<int>(random_() % count); }
  QString RandomText();
  QWidget* Window() const;
  QWidget* KeyTarget() const;
  std::vector<QWidget*> VisibleWidgets() const;

  client::Program& program_;
  client::MainWindow& window_;
  std::mt19937_64 random_;
  std::atomic<int> done_ = 0;
  int left_ = 0;
  int depth_ = 0;
  /// The last thing at which somebody asked whether unsaved input may go.
  int asked_ = -1;
  std::map<const client::EditorView*, bool> modified_;  // the open editors
  std::vector<std::string> story_;
  std::map<std::string, int> counts_;
  std::string failure_;
};

}  // namespace kiv::test
