// kivstudy_monkey: the program's window in the hands of a monkey. Ends with 1 when anything went wrong.

#include <unistd.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <deque>
#include <exception>
#include <iostream>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "client/window/editor_view.h"
#include "client/window/entity_tree.h"
#include "client/window/study_list.h"
#include "core/study_kinds.h"
#include "hom/hom_data.h"
#include "host/constants.h"
#include "samples/network_maker.h"
#include "session/study_session.h"
#include "store/network/network_import.h"
#include "support/program_window.h"
#include "support/rich_studies.h"
#include "support/rows_text.h"
#include "support/temp_folder.h"
#include "support/user_hand.h"

namespace kiv::test {
namespace {

constexpr unsigned kPatience = 120;  // seconds for one thing; generous, because a sanitizer is slow
constexpr std::size_t kStoryLength = 25;
constexpr int kDeepest = 4;  // dialogs above dialogs
/// Closing an editor comes to an end some events after its question was answered.
constexpr int kAnswerHolds = 4;

constexpr const char* kModifiers = ",,,Shift+,Ctrl+";
constexpr const char* kKeys =
    "Tab,Tab,Tab,Backtab,Up,Down,Down,Left,Right,Home,End,PgUp,PgDown,Del,Backspace,Return,Esc,Space,F2,Menu";
constexpr const char* kShortcuts =
    "Ctrl+A,Ctrl+C,Ctrl+V,Ctrl+X,Ctrl+Z,Ctrl+Y,Ctrl+S,Ctrl+W,Ctrl+N,Ctrl+O,Ctrl+K,Ctrl+F,F5,Ctrl+H,"
    "Ctrl+Tab,Ctrl+Shift+S,Ctrl+Shift+F,Ctrl+Del,Ctrl+Return,Ctrl+Home";
/// The last stands for a long one.
constexpr const char* kTexts =
    "30|1439|0|-1|abc|a b.c|99999999999999999999|\u00e4\u20ac|\U0001F600|5551234|1,2;3 4\n5\r\n|"
    "$YY$MM$DD|x'; --|<b>&amp;|1-1|\t\x01||%1";

/// The menu or the dialog that is open above the window; null when there is none.
QWidget* OpenDialog() {
  QWidget* popup = QApplication::activePopupWidget();
  return popup ? popup : QApplication::activeModalWidget();
}

/// Whoever asks about unsaved input offers to lose it.
bool AsksAboutInput(const QWidget* dialog) {
  const auto* message = qobject_cast<const QMessageBox*>(dialog);
  return message && std::ranges::any_of(message->buttons(), [message](QAbstractButton* button) {
           return message->buttonRole(button) == QMessageBox::DestructiveRole;
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
  /// open. A window that takes no more input raises SIGALRM.
  void Play(int events) {
    left_ = events;
    QTimer::singleShot(0, [this] { Next(); });
    while (left_ > 0 || depth_ > 0 || OpenDialog()) {
      QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
      if (!failure_.empty()) throw std::runtime_error(failure_);
    }
    alarm(0);
  }

  std::string Story() const {
    std::string story;
    for (const std::string& line : story_) story += line + '\n';
    return story;
  }

 private:
  enum class In { Anything, Window };
  struct Act {
    const char* name;
    int weight;
    void (Monkey::*run)();
    In in = In::Anything;  ///< what has to be in front
  };

  /// Runs inside of whatever event loop is the innermost: the window's, a dialog's or a menu's.
  void Next() {
    alarm(kPatience);
    WatchEditors();
    if (!failure_.empty()) left_ = 0;
    if (left_ <= 0 && depth_ == 0 && !OpenDialog()) return;
    QTimer::singleShot(0, [this] { Next(); });  // first, because what follows may open a dialog
    if (left_ <= 0 || depth_ >= kDeepest) return CloseDialog();
    --left_;
    ++done_;
    static const Act kActs[] = {
        {"key", 20, &Monkey::PressKey},
        {"shortcut", 10, &Monkey::PressShortcut},
        {"type", 14, &Monkey::TypeText},
        {"paste", 5, &Monkey::PasteText},
        {"click", 26, &Monkey::ClickWidget},
        {"menu", 3, &Monkey::OpenContextMenu},
        {"choose", 4, &Monkey::ChooseEntry},
        {"action", 4, &Monkey::TriggerAction, In::Window},
        {"drop", 4, &Monkey::DropEntities, In::Window},
        {"open", 3, &Monkey::OpenSomeStudy, In::Window},
        {"page", 4, &Monkey::ShowPage},
        {"answer", 8, &Monkey::AnswerDialog},
        {"resize", 1, &Monkey::ResizeWindow},
        {"save", 6, &Monkey::ChangeAndSave, In::Window},
    };
    std::vector<int> weights;
    for (const Act& act : kActs) weights.push_back(act.weight);
    RunAct(kActs[std::discrete_distribution<std::size_t>(weights.begin(), weights.end())(random_)]);
  }

  void RunAct(const Act& act) {
    ++depth_;
    Tell(act.name);
    if (!window_.isVisible()) window_.show();
    QApplication::setActiveWindow(Window());
    if (qobject_cast<QFileDialog*>(OpenDialog())) {
      CloseDialog();  // files of the machine are none of a monkey's business
    } else if (act.in == In::Window && OpenDialog()) {
      AnswerDialog();
    } else {
      (this->*act.run)();
    }
    --depth_;
  }

  void CloseDialog() {
    QWidget* open = OpenDialog();
    if (AsksAboutInput(open)) asked_ = done_;
    if (auto* dialog = qobject_cast<QDialog*>(open)) return dialog->reject();
    if (open) open->close();
  }

  void WatchEditors() {
    std::map<const client::EditorView*, bool> now;
    for (int i = 1; i < Editors().count(); ++i) {
      const auto* editor = static_cast<const client::EditorView*>(Editors().widget(i));
      now[editor] = editor->Session().Modified();
    }
    for (const auto& [editor, modified] : modified_) {
      if (modified && !now.contains(editor) && done_ - asked_ > kAnswerHolds) {
        failure_ = "An editor with unsaved input is gone, and nobody asked.\n" + Story();
      }
    }
    modified_ = std::move(now);
    const QWidget* dialog = QApplication::activeModalWidget();
    // What is told while the answer is carried out, such as a warning of a save, keeps it waiting.
    if ((dialog && done_ - asked_ <= kAnswerHolds) || AsksAboutInput(dialog)) asked_ = done_;
  }

  void Tell(const std::string& what) {
    if (story_.size() == kStoryLength) story_.pop_front();
    story_.push_back(std::to_string(done_) + ": " + what);
  }
  void Tell(const std::string& what, const QObject& whom) {
    Tell(what + " " + whom.objectName().toStdString() + " " + whom.metaObject()->className());
  }

  QWidget* Window() const { return OpenDialog() ? OpenDialog() : &window_; }
  QTabWidget& Editors() const { return *qobject_cast<QTabWidget*>(window_.centralWidget()); }

  template <class Count>
  int Below(Count count) {
    return static_cast<int>(random_() % static_cast<std::uint64_t>(count));
  }
  template <class Range>
  auto OneOf(const Range& range) {
    return range[Below(std::size(range))];
  }
  QString OneOf(const char* texts, char separator) {
    return OneOf(QString::fromUtf8(texts).split(QLatin1Char(separator)));
  }
  QString AnyText() { return OneOf(kTexts, '|').replace(QLatin1String("%1"), QString(300, u'w')); }
  /// One of the widgets that can be seen and used; null when none fits.
  template <class Widget>
  Widget* Any(bool (*fits)(const Widget&) = [](const Widget&) { return true; }) {
    std::vector<Widget*> all;
    for (auto* widget : Window()->findChildren<Widget*>()) {
      const bool usable = widget->isVisible() && widget->isEnabled() && !widget->visibleRegion().isEmpty();
      if (usable && fits(*widget)) all.push_back(widget);
    }
    return all.empty() ? nullptr : OneOf(all);
  }

  void Press(const QKeySequence& keys) {
    Tell(keys.toString().toStdString());
    QTest::keySequence(user_.KeyTarget(), keys);
  }
  void PressKey() { Press(QKeySequence(OneOf(kModifiers, ',') + OneOf(kKeys, ','))); }
  void PressShortcut() {
    const QString letter = QStringLiteral("Alt+") + QChar(u'A' + Below(26));
    Press(QKeySequence(Below(4) == 0 ? letter : OneOf(kShortcuts, ',')));
  }
  void TypeText() {
    const QString text = AnyText().left(12);
    Tell("type " + text.toStdString());
    for (const QChar character : text) {
      if (!window_.isVisible()) return;  // a letter of the menu has closed it
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
      QApplication::sendEvent(user_.KeyTarget(), &press);
    }
  }
  void PasteText() {
    QApplication::clipboard()->setText(AnyText());
    Press(QKeySequence::Paste);
  }

  void ClickWidget() {
    const QPointer<QWidget> widget(Any<QWidget>());
    if (!widget) return CloseDialog();
    const QRect visible = widget->visibleRegion().boundingRect();
    const QPoint where = visible.topLeft() + QPoint(Below(visible.width()), Below(visible.height()));
    Tell("click", *widget);
    QTest::mouseClick(widget, Qt::LeftButton, Below(6) == 0 ? Qt::ShiftModifier : Qt::NoModifier, where);
    if (widget && widget->isVisible() && Below(5) == 0) QTest::mouseDClick(widget, Qt::LeftButton, {}, where);
  }
  void OpenContextMenu() {
    auto* widget = Any<QWidget>();
    if (!widget) return CloseDialog();
    const QPoint middle = widget->rect().center();
    Tell("menu of", *widget);
    QContextMenuEvent open(QContextMenuEvent::Mouse, middle, widget->mapToGlobal(middle));
    QApplication::sendEvent(widget, &open);
  }
  void ChooseEntry() {
    auto* list = Any<QComboBox>([](const QComboBox& box) { return box.count() > 0; });
    if (!list) return PressKey();
    const int index = Below(list->count());
    Tell("choose " + std::to_string(index) + " of", *list);
    list->setCurrentIndex(index);
    Q_EMIT list->activated(index);
  }
  void TriggerAction() {
    std::vector<QAction*> actions;
    for (QAction* action : window_.findChildren<QAction*>()) {
      if (action->isEnabled() && !action->menu() && !action->text().isEmpty()) actions.push_back(action);
    }
    QAction* action = OneOf(actions);
    Tell("action " + action->text().toStdString());
    action->trigger();
  }
  void DropEntities() {
    auto* list = Any<QAbstractItemView>([](const QAbstractItemView& view) {
      return view.acceptDrops() && view.objectName() != QLatin1String("network");
    });
    const auto& entities = window_.Network().Model().Entities();
    client::EntityTree::Nodes nodes;
    for (int i = Below(12); i >= 0 && entities.Count() > 0; --i) {
      nodes.push_back(entities.Node(static_cast<store::NetworkEntities::Number>(Below(entities.Count()))));
    }
    if (!list || nodes.empty()) return ShowPage();
    Tell("drop " + nodes.front().key + " and " + std::to_string(nodes.size() - 1) + " more on", *list);
    const client::EntityDrag::Scope drag(program_.Drag(), nodes);
    user_.Drop(*list->viewport(), Below(8) == 0 ? "text/plain" : host::kConfigEntityTreeFormat);
  }
  void OpenSomeStudy() {
    const auto studies = program_.Store().List();
    if (studies.empty()) return;
    const std::int32_t id = OneOf(studies).id;
    window_.OpenStudy(id);
    if (Below(4) != 0) return;
    Editors().setCurrentIndex(0);
    window_.List().SelectStudy(id);
    window_.List().View().setFocus();
    Tell("delete " + std::to_string(id));
    QTest::keyClick(&window_.List().View(), Qt::Key_Delete, Qt::ControlModifier);
  }
  void ShowPage() {
    auto* tabs = Any<QTabWidget>();
    tabs ? tabs->setCurrentIndex(Below(tabs->count())) : PressKey();
  }
  /// Now and then something sensible, or nothing would ever be stored.
  void ChangeAndSave() {
    const client::EditorView* editor = window_.CurrentEditor();
    if (!editor) return OpenSomeStudy();
    auto* duration = editor->findChild<QLineEdit*>(QStringLiteral("txtDuration"));
    if (!duration || !duration->isVisible()) return ShowPage();
    duration->setFocus();
    duration->selectAll();
    QTest::keyClicks(duration, QString::number(15 * (1 + Below(30))));
    Press(QKeySequence::Save);
  }
  void AnswerDialog() {
    if (!OpenDialog()) return ClickWidget();
    auto* button = Any<QAbstractButton>();
    if (!button) return CloseDialog();
    Tell("answer " + button->text().toStdString());
    button->click();
  }
  void ResizeWindow() { window_.resize(400 + Below(1200), 300 + Below(800)); }

  client::Program& program_;
  client::MainWindow& window_;
  const client::UserHand user_{QString()};
  std::mt19937_64 random_;
  int done_ = 0;
  int left_ = 0;
  int depth_ = 0;
  /// The last thing at which somebody asked whether unsaved input may go.
  int asked_ = -1;
  std::map<const client::EditorView*, bool> modified_;  // the open editors
  std::deque<std::string> story_;
  std::string failure_;
};

/// The value behind the name of an option.
std::uint64_t Option(int argc, char** argv, std::string_view name, std::uint64_t otherwise) {
  char** const found = std::find(argv, argv + argc, name);
  return argv + argc - found > 1 ? std::stoull(found[1]) : otherwise;
}

const Monkey* player = nullptr;

/// What was done last, before the process ends as it would have.
void TellStory(int signal) {
  const std::string story =
      (player ? player->Story() : "") + (signal == SIGALRM ? "The window hangs.\n" : "");
  [[maybe_unused]] const auto written = write(STDERR_FILENO, story.data(), story.size());
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void FillStore(client::Program& program, const TempFolder& folder) {
  store::StudyStore& store = program.Store();
  const std::string network = folder.File("network");
  samples::WriteNetwork({.systems = 2, .ecps = 4, .cells = 60}, network);
  store::ImportNetwork(store.Database(), network);
  store.Scenarios().Add("Harbour");
  const std::int32_t scenario = store.Scenarios().Add("Downtown");
  for (const char* name : {"One", "Two", "Three"}) {  // studies that can be saved as they are
    store::Study study = store.New(std::string(kHomStudy));
    study.name = name;
    study.record->SetScenarioID(scenario);
    study.record->SetDuration(30);
    study.record->HomData()->SetToAmps("Y");
    study.record->HomData()->SetPath(folder.Path());
    study.record->HomData()->SetDataFile("h$YY$MM$DD$HH$MI.hom");
    store.Save(study, "monkey");
  }
  for (const std::string& kind : RichKinds()) {
    for (const int variant : {1, 2}) {
      store::Study study = store.New(kind);
      Fill(study, variant);
      store.Save(study, "monkey");
    }
  }
}

/// Every study can still be read and shown by its tabs.
void CheckStore(client::Program& program) {
  const auto studies = program.Store().List();
  for (const store::StudySummary& summary : studies) {
    session::StudySession session(program.Store(), program.Store().Load(summary.id));
  }
  std::cout << studies.size() << " studies load; changes of studies: "
            << RowsText(program.Store().Database(), "event, count(*)", "kiv_study_history GROUP BY event")
            << '\n';
}

void Run(int events, std::uint64_t seed) {
  const TempFolder folder;
  const std::string database = folder.File("studies.db");
  ProgramWindow shown;
  shown.window->OpenDatabase(database, client::Program::WhenMissing::Create);
  FillStore(shown.program, folder);
  shown.window->OpenDatabase(database, client::Program::WhenMissing::Refuse);
  Monkey monkey(shown.program, *shown.window, seed);
  player = &monkey;
  monkey.Play(events);
  player = nullptr;
  shown.window.reset();
  shown.program.Use(shown.program.Connect(database, client::Program::WhenMissing::Refuse));
  CheckStore(shown.program);
}

}  // namespace
}  // namespace kiv::test

int main(int argc, char** argv) {
  using namespace kiv::test;
  const auto events = static_cast<int>(Option(argc, argv, "--events", 1500));
  const std::uint64_t seed = Option(argc, argv, "--seed", 20261121);
  std::cout << "kivstudy_monkey --events " << events << " --seed " << seed << std::endl;
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGALRM}) std::signal(signal, TellStory);
  const WindowApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    Run(events, seed);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
