// kivstudy_monkey: the program's window in the hands of a monkey. Ends with 1 when anything went wrong.

#include <unistd.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QString>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "client/entity_drag.h"
#include "client/window/editor_view.h"
#include "client/window/entity_tree.h"
#include "client/window/main_window.h"
#include "client/window/study_list.h"
#include "client/window/window_program.h"
#include "client/window/window_settings.h"
#include "core/study_kinds.h"
#include "hom/hom_data.h"
#include "host/constants.h"
#include "samples/network_maker.h"
#include "session/study_session.h"
#include "store/network/network_import.h"
#include "support/rich_studies.h"
#include "support/rows_text.h"
#include "support/temp_folder.h"

namespace kiv::test {
namespace {

constexpr std::size_t kStoryLength = 25;
constexpr int kDeepest = 4;  // dialogs above dialogs
/// Closing an editor comes to an end some events after its question was answered.
constexpr int kAnswerHolds = 4;

template <class Range>
const auto& OneOf(const Range& range, std::mt19937_64& random) {
  return range[random() % std::size(range)];
}

/// Whoever asks about unsaved input offers to lose it.
bool AsksAboutInput(const QMessageBox& message) {
  const auto buttons = message.buttons();
  return std::any_of(buttons.begin(), buttons.end(), [&message](QAbstractButton* button) {
    return message.buttonRole(button) == QMessageBox::DestructiveRole;
  });
}

/// A user who knows nothing and tries everything: random keys, clicks, pastes, drops, menu entries and
/// answers to dialogs at the program's window. The same seed does the same things.
///
/// It raises std::runtime_error when an editor with unsaved input is gone and nobody asked about it.
class Monkey {
 public:
  Monkey(client::Program& program, client::MainWindow& window, std::uint64_t seed)
      : program_(program), window_(window), random_(seed) {}

  /// Does as many things, one after another, also while a dialog or a menu is open, and then closes what is
  /// open.
  void Play(int events) {
    left_ = events;
    QTimer::singleShot(0, [this] { Next(); });
    while (left_ > 0 || depth_ > 0 || QApplication::activeModalWidget() ||
           QApplication::activePopupWidget()) {
      QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
      if (!failure_.empty()) throw std::runtime_error(failure_);
    }
  }

  std::string Story() const {
    std::string story;
    for (const std::string& line : story_) story += line + '\n';
    return story;
  }

  /// How many things were done so far; a watchdog may look from another thread.
  int Done() const { return done_; }

 private:
  struct Act {
    const char* name;
    int weight;
    void (Monkey::*run)();
  };

  int Below(std::size_t count) { return static_cast<int>(random_() % count); }

  /// Runs inside of whatever event loop is the innermost: the window's, a dialog's or a menu's.
  void Next() {
    WatchEditors();
    if (!failure_.empty()) left_ = 0;
    const bool inDialog = QApplication::activeModalWidget() || QApplication::activePopupWidget();
    if (left_ <= 0 && depth_ == 0 && !inDialog) return;
    QTimer::singleShot(0, [this] { Next(); });  // first, because what follows may open a dialog
    if (left_ <= 0 || depth_ >= kDeepest) return CloseDialogs();
    --left_;
    ++done_;
    static constexpr Act kActs[] = {
        {"key", 20, &Monkey::PressKey},       {"shortcut", 10, &Monkey::PressShortcut},
        {"type", 14, &Monkey::TypeText},      {"paste", 5, &Monkey::PasteText},
        {"click", 26, &Monkey::ClickWidget},  {"menu", 3, &Monkey::OpenContextMenu},
        {"choose", 4, &Monkey::ChooseEntry},  {"action", 4, &Monkey::TriggerAction},
        {"drop", 4, &Monkey::DropEntities},   {"open", 3, &Monkey::OpenSomeStudy},
        {"page", 4, &Monkey::ShowPage},       {"answer", 8, &Monkey::AnswerDialog},
        {"resize", 1, &Monkey::ResizeWindow}, {"save", 6, &Monkey::ChangeAndSave},
    };
    int weights = 0;
    for (const Act& act : kActs) weights += act.weight;
    int chosen = Below(static_cast<std::size_t>(weights));
    for (const Act& act : kActs) {
      if ((chosen -= act.weight) < 0) return RunAct(act);
    }
  }

  void RunAct(const Act& act) {
    ++depth_;
    Tell(act.name);
    if (!window_.isVisible()) window_.show();
    QApplication::setActiveWindow(Window());
    // Files of the machine are none of a monkey's business.
    qobject_cast<QFileDialog*>(Window()) ? CloseDialogs() : (this->*act.run)();
    --depth_;
  }

  void CloseDialogs() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
      popup->close();
    } else if (QWidget* dialog = QApplication::activeModalWidget()) {
      const auto* message = qobject_cast<QMessageBox*>(dialog);
      if (message && AsksAboutInput(*message)) asked_ = done_;
      static_cast<QDialog*>(dialog)->reject();
    }
  }

  void WatchEditors() {
    std::map<const client::EditorView*, bool> now;
    const auto& tabs = *qobject_cast<QTabWidget*>(window_.centralWidget());
    for (int i = 1; i < tabs.count(); ++i) {
      const auto* editor = static_cast<const client::EditorView*>(tabs.widget(i));
      now[editor] = editor->Session().Modified();
    }
    for (const auto& [editor, modified] : modified_) {
      if (modified && !now.contains(editor) && done_ - asked_ > kAnswerHolds) {
        failure_ = "An editor with unsaved input is gone, and nobody asked.\n" + Story();
      }
    }
    modified_ = std::move(now);
    const auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    // What is told while the answer is carried out, such as a warning of a save, keeps it waiting.
    const bool holds = QApplication::activeModalWidget() && done_ - asked_ <= kAnswerHolds;
    if (holds || (message && AsksAboutInput(*message))) asked_ = done_;
  }

  void Tell(const std::string& what) {
    if (story_.size() == kStoryLength) story_.erase(story_.begin());
    story_.push_back(std::to_string(done_) + ": " + what);
  }

  QWidget* Window() const {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return &window_;
  }

  QWidget* KeyTarget() const {
    QWidget* window = Window();
    QWidget* focused = window->focusWidget();
    return focused && focused->isVisible() ? focused : window;
  }

  std::vector<QWidget*> VisibleWidgets() const {
    std::vector<QWidget*> widgets;
    for (QWidget* widget : Window()->findChildren<QWidget*>()) {
      if (widget->isVisible() && widget->isEnabled() && !widget->visibleRegion().isEmpty())
        widgets.push_back(widget);
    }
    return widgets;
  }

  QString RandomText() {
    static const QStringList kTexts =
        QStringLiteral(
            "30|1439|0|-1|abc|a b.c|99999999999999999999|\u00e4\u20ac|\U0001F600|5551234|1,2;3 4\n5\r\n|"
            "$YY$MM$DD|x'; --|<b>&amp;|1-1|\t\x01||%1")
            .arg(QString(300, u'w'))
            .split(u'|');
    return OneOf(kTexts, random_);
  }

  void PressKey() {
    static constexpr Qt::Key kKeys[] = {Qt::Key_Tab,      Qt::Key_Tab,    Qt::Key_Tab,       Qt::Key_Backtab,
                                        Qt::Key_Up,       Qt::Key_Down,   Qt::Key_Down,      Qt::Key_Left,
                                        Qt::Key_Right,    Qt::Key_Home,   Qt::Key_End,       Qt::Key_PageUp,
                                        Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Return,
                                        Qt::Key_Escape,   Qt::Key_Space,  Qt::Key_F2,        Qt::Key_Menu};
    static constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier,
                                                          Qt::ShiftModifier, Qt::ControlModifier};
    const Qt::Key key = OneOf(kKeys, random_);
    const Qt::KeyboardModifier modifier = OneOf(kModifiers, random_);
    Tell("key " + std::to_string(key));
    QTest::keyClick(KeyTarget(), key, modifier);
  }

  void PressShortcut() {
    static const QStringList kShortcuts =
        QStringLiteral(
            "Ctrl+A Ctrl+C Ctrl+V Ctrl+X Ctrl+Z Ctrl+Y Ctrl+S Ctrl+W Ctrl+N Ctrl+O Ctrl+K Ctrl+F F5 Ctrl+H "
            "Ctrl+Tab Ctrl+Shift+S Ctrl+Shift+F Ctrl+Del Ctrl+Return Ctrl+Home")
            .split(u' ');
    QKeySequence keys(OneOf(kShortcuts, random_));
    if (Below(4) == 0) keys = QKeySequence(QStringLiteral("Alt+") + QChar(u'A' + Below(26)));
    Tell(keys.toString().toStdString());
    QTest::keySequence(KeyTarget(), keys);
  }

  void TypeText() {
    const QString text = RandomText();
    Tell("type " + text.left(20).toStdString());
    for (const QChar character : text.left(12)) {
      const QPointer<QWidget> target(KeyTarget());
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
      QApplication::sendEvent(target, &press);
    }
  }

  void PasteText() {
    QApplication::clipboard()->setText(RandomText());
    QTest::keySequence(KeyTarget(), QKeySequence::Paste);
  }

  void ClickWidget() {
    const auto widgets = VisibleWidgets();
    if (widgets.empty()) return CloseDialogs();
    QWidget* widget = OneOf(widgets, random_);
    const QRect visible = widget->visibleRegion().boundingRect();
    const QPoint where = visible.topLeft() + QPoint(Below(static_cast<std::size_t>(visible.width())),
                                                    Below(static_cast<std::size_t>(visible.height())));
    Tell("click " + widget->objectName().toStdString() + " " + widget->metaObject()->className());
    const QPointer<QWidget> target(widget);
    const auto modifiers = Below(6) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
    QTest::mouseClick(widget, Qt::LeftButton, modifiers, where);
    if (target && target->isVisible() && Below(5) == 0) QTest::mouseDClick(target, Qt::LeftButton, {}, where);
  }

  void OpenContextMenu() {
    const auto widgets = VisibleWidgets();
    if (widgets.empty()) return CloseDialogs();
    QWidget* widget = OneOf(widgets, random_);
    const QPoint middle = widget->rect().center();
    Tell("menu of " + widget->objectName().toStdString());
    QContextMenuEvent open(QContextMenuEvent::Mouse, middle, widget->mapToGlobal(middle));
    QApplication::sendEvent(widget, &open);
  }

  void ChooseEntry() {
    std::vector<QComboBox*> lists;
    for (QWidget* widget : VisibleWidgets()) {
      auto* list = qobject_cast<QComboBox*>(widget);
      if (list && list->count() > 0) lists.push_back(list);
    }
    if (lists.empty()) return PressKey();
    QComboBox* list = OneOf(lists, random_);
    const int index = Below(static_cast<std::size_t>(list->count()));
    Tell("choose " + std::to_string(index) + " of " + list->objectName().toStdString());
    list->setCurrentIndex(index);
    Q_EMIT list->activated(index);
  }

  void TriggerAction() {
    if (Window() != &window_) return AnswerDialog();
    std::vector<QAction*> actions;
    for (QAction* action : window_.findChildren<QAction*>()) {
      if (action->isEnabled() && !action->menu() && !action->text().isEmpty()) actions.push_back(action);
    }
    QAction* action = OneOf(actions, random_);
    Tell("action " + action->text().toStdString());
    action->trigger();
  }

  void DropEntities() {
    if (Window() != &window_) return AnswerDialog();
    std::vector<QAbstractItemView*> lists;
    for (QWidget* widget : VisibleWidgets()) {
      auto* view = qobject_cast<QAbstractItemView*>(widget);
      if (view && view->acceptDrops() && view->objectName() != QLatin1String("network"))
        lists.push_back(view);
    }
    const auto& entities = window_.Network().Model().Entities();
    client::EntityTree::Nodes nodes;
    for (int i = Below(12); i >= 0 && entities.Count() > 0; --i) {
      nodes.push_back(entities.Node(static_cast<store::NetworkEntities::Number>(Below(entities.Count()))));
    }
    if (lists.empty() || nodes.empty()) return ShowPage();
    Tell("drop " + nodes.front().key + " and " + std::to_string(nodes.size() - 1) + " more");
    const client::EntityDrag::Scope drag(program_.Drag(), nodes);
    QMimeData data;
    data.setData(QLatin1String(Below(8) == 0 ? "text/plain" : host::kConfigEntityTreeFormat), "x");
    QWidget* target = OneOf(lists, random_)->viewport();
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return;
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
  }

  void OpenSomeStudy() {
    if (Window() != &window_) return AnswerDialog();
    const auto studies = program_.Store().List();
    if (studies.empty()) return;
    const std::int32_t id = OneOf(studies, random_).id;
    window_.OpenStudy(id);
    if (Below(4) != 0) return;
    qobject_cast<QTabWidget*>(window_.centralWidget())->setCurrentIndex(0);
    window_.List().SelectStudy(id);
    window_.List().View().setFocus();
    Tell("delete " + std::to_string(id));
    QTest::keyClick(&window_.List().View(), Qt::Key_Delete, Qt::ControlModifier);
  }

  void ShowPage() {
    std::vector<QTabWidget*> all;
    for (QWidget* widget : VisibleWidgets()) {
      if (auto* tabs = qobject_cast<QTabWidget*>(widget)) all.push_back(tabs);
    }
    if (all.empty()) return PressKey();
    QTabWidget* tabs = OneOf(all, random_);
    tabs->setCurrentIndex(Below(static_cast<std::size_t>(tabs->count())));
  }

  /// Now and then something sensible, or nothing would ever be stored.
  void ChangeAndSave() {
    client::EditorView* editor = window_.CurrentEditor();
    if (Window() != &window_ || !editor) return OpenSomeStudy();
    auto* duration = editor->findChild<QLineEdit*>(QStringLiteral("txtDuration"));
    if (!duration || !duration->isVisible()) return ShowPage();
    duration->setFocus();
    duration->selectAll();
    QTest::keyClicks(duration, QString::number(15 * (1 + Below(30))));
    QTest::keySequence(KeyTarget(), QKeySequence::Save);
  }

  void AnswerDialog() {
    QWidget* dialog = Window();
    if (dialog == &window_) return ClickWidget();
    std::vector<QAbstractButton*> buttons;
    for (auto* button : dialog->findChildren<QAbstractButton*>()) {
      if (button->isVisible() && button->isEnabled()) buttons.push_back(button);
    }
    if (buttons.empty()) return CloseDialogs();
    QAbstractButton* button = OneOf(buttons, random_);
    Tell("answer " + button->text().toStdString());
    button->click();
  }

  void ResizeWindow() { window_.resize(400 + Below(1200), 300 + Below(800)); }

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
  std::string failure_;
};

struct Request {
  int events = 1500;
  std::uint64_t seed = 20261121;
};

Request Read(int argc, char** argv) {
  Request request;
  for (int i = 1; i + 1 < argc; i += 2) {
    const std::string_view name = argv[i];
    if (name == "--events") request.events = std::stoi(argv[i + 1]);
    if (name == "--seed") request.seed = std::stoull(argv[i + 1]);
  }
  return request;
}

const Monkey* player = nullptr;

/// What was done last, before the process ends as it would have.
void TellStory(int signal) {
  if (player) {
    const std::string story = player->Story();
    [[maybe_unused]] const auto written = write(STDERR_FILENO, story.data(), story.size());
  }
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

/// Ends the process when the window takes no more input.
class Watchdog {
 public:
  explicit Watchdog(const Monkey& monkey)
      : thread_([this, &monkey](const std::stop_token& stop) { Watch(monkey, stop); }) {}

 private:
  static constexpr int kPatience = 120;  // seconds; generous, because a sanitizer is slow

  void Watch(const Monkey& monkey, const std::stop_token& stop) {
    int done = -1;
    int seconds = 0;
    while (!stop.stop_requested()) {
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
      if (monkey.Done() != done) {
        done = monkey.Done();
        seconds = 0;
      } else if (++seconds > kPatience * 5) {
        std::cerr << "The window hangs.\n";
        std::abort();
      }
    }
  }

  std::jthread thread_;
};

void FillStore(client::Program& program, const TempFolder& folder) {
  const std::string network = folder.File("network");
  samples::WriteNetwork({.systems = 2, .ecps = 4, .cells = 60}, network);
  store::ImportNetwork(program.Store().Database(), network);
  program.Store().Scenarios().Add("Downtown");
  program.Store().Scenarios().Add("Harbour");
  for (const char* name : {"One", "Two", "Three"}) {  // studies that can be saved as they are
    store::Study study = program.Store().New(std::string(kHomStudy));
    study.name = name;
    study.record->SetDuration(30);
    study.record->HomData()->SetToAmps("Y");
    study.record->HomData()->SetPath(folder.Path());
    study.record->HomData()->SetDataFile("h$YY$MM$DD$HH$MI.hom");
    std::vector<store::NamedStudy> all = {{study, "Downtown"}};
    program.Store().AddAll(all, "monkey");
  }
  for (const std::string& kind : RichKinds()) {
    for (const int variant : {1, 2}) {
      store::Study study = program.Store().New(kind);
      Fill(study, variant);
      program.Store().Save(study, "monkey");
    }
  }
}

/// Every study can still be read and shown by its tabs.
void CheckStore(client::Program& program) {
  std::size_t studies = 0;
  for (const store::StudySummary& summary : program.Store().List()) {
    session::StudySession session(program.Store(), program.Store().Load(summary.id));
    ++studies;
  }
  std::cout << studies << " studies load; changes of studies: "
            << RowsText(program.Store().Database(), "event, count(*)", "kiv_study_history GROUP BY event")
            << '\n';
}

void Run(const Request& request) {
  const TempFolder folder;
  const std::string database = folder.File("studies.db");
  client::Program program;
  client::StartWithWindow(program);
  client::WindowSettings(program.Settings()).clear();
  {
    client::MainWindow window(program);
    window.show();
    window.OpenDatabase(database, client::Program::WhenMissing::Create);
    FillStore(program, folder);
    window.OpenDatabase(database, client::Program::WhenMissing::Refuse);
    Monkey monkey(program, window, request.seed);
    player = &monkey;
    const Watchdog watchdog(monkey);
    monkey.Play(request.events);
    player = nullptr;
  }
  program.Use(client::Program::Connect(database, client::Program::WhenMissing::Refuse));
  CheckStore(program);
}

}  // namespace
}  // namespace kiv::test

int main(int argc, char** argv) {
  const auto request = kiv::test::Read(argc, argv);
  std::cout << "kivstudy_monkey --events " << request.events << " --seed " << request.seed << std::endl;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const kiv::test::TempFolder settings;
  qputenv("XDG_CONFIG_HOME", settings.Path().c_str());
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE}) std::signal(signal, kiv::test::TellStory);
  const kiv::client::Application application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    kiv::test::Run(request);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
