#include "monkey/monkey.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <array>
#include <stdexcept>

#include "client/entity_drag.h"
#include "client/window/entity_tree.h"
#include "client/window/study_list.h"
#include "host/constants.h"

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

/// Files of the machine are none of a monkey's business.
bool IsHarmless(const QAction& action) {
  const QString text = action.text().remove(u'&');
  static const std::array<QString, 2> kFileNames = {QStringLiteral("Quit"), QStringLiteral("Print")};
  return !text.isEmpty() && std::none_of(kFileNames.begin(), kFileNames.end(),
                                         [&text](const QString& name) { return text.startsWith(name); });
}

}  // namespace

Monkey::Monkey(client::Program& program, client::MainWindow& window, std::uint64_t seed)
    : program_(program), window_(window), random_(seed) {}

void Monkey::Play(int events) {
  left_ = events;
  QTimer::singleShot(0, [this] { Next(); });
  while (left_ > 0 || depth_ > 0 || QApplication::activeModalWidget() || QApplication::activePopupWidget()) {
    QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    if (!failure_.empty()) throw std::runtime_error(failure_);
  }
}

/// Runs inside of whatever event loop is the innermost: the window's, a dialog's or a menu's.
void Monkey::Next() {
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
      {"resize", 1, &Monkey::ResizeWindow},
  };
  int weights = 0;
  for (const Act& act : kActs) weights += act.weight;
  int chosen = Below(static_cast<std::size_t>(weights));
  for (const Act& act : kActs) {
    if ((chosen -= act.weight) < 0) return RunAct(act);
  }
}

void Monkey::RunAct(const Act& act) {
  ++counts_[act.name];
  ++depth_;
  Tell(act.name);
  if (!window_.isVisible()) window_.show();
  QApplication::setActiveWindow(Window());
  (this->*act.run)();
  --depth_;
}

void Monkey::CloseDialogs() {
  if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  } else if (QWidget* dialog = QApplication::activeModalWidget()) {
    const auto* message = qobject_cast<QMessageBox*>(dialog);
    if (message && AsksAboutInput(*message)) asked_ = done_;
    static_cast<QDialog*>(dialog)->reject();
  }
}

void Monkey::WatchEditors() {
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
  if (message && AsksAboutInput(*message)) asked_ = done_;
}

void Monkey::Tell(const std::string& what) {
  if (story_.size() == kStoryLength) story_.erase(story_.begin());
  story_.push_back(std::to_string(done_) + ": " + what);
}

std::string Monkey::Story() const {
  std::string story;
  for (const std::string& line : story_) story += line + '\n';
  return story;
}

QWidget* Monkey::Window() const {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return &window_;
}

QWidget* Monkey::KeyTarget() const {
  QWidget* window = Window();
  QWidget* focused = window->focusWidget();
  return focused && focused->isVisible() ? focused : window;
}

std::vector<QWidget*> Monkey::VisibleWidgets() const {
  std::vector<QWidget*> widgets;
  if (qobject_cast<QFileDialog*>(Window())) return widgets;
  for (QWidget* widget : Window()->findChildren<QWidget*>()) {
    if (widget->isVisible() && widget->isEnabled() && !widget->visibleRegion().isEmpty())
      widgets.push_back(widget);
  }
  return widgets;
}

QString Monkey::RandomText() {
  static const std::vector<QString> kTexts = {QStringLiteral("30"),
                                              QStringLiteral("1439"),
                                              QStringLiteral("0"),
                                              QStringLiteral("-1"),
                                              QStringLiteral("abc"),
                                              QStringLiteral("a b.c"),
                                              QStringLiteral("99999999999999999999"),
                                              QStringLiteral("\u00e4\u20ac"),
                                              QStringLiteral("\U0001F600"),
                                              QStringLiteral("5551234"),
                                              QStringLiteral("1,2;3 4\n5\r\n"),
                                              QStringLiteral("$YY$MM$DD"),
                                              QStringLiteral("x'; --"),
                                              QStringLiteral("<b>&amp;"),
                                              QString(300, u'w'),
                                              QString(),
                                              QStringLiteral("1-1"),
                                              QStringLiteral("\t\x01")};
  return OneOf(kTexts, random_);
}

void Monkey::PressKey() {
  static constexpr Qt::Key kKeys[] = {Qt::Key_Tab,      Qt::Key_Tab,    Qt::Key_Tab,       Qt::Key_Backtab,
                                      Qt::Key_Up,       Qt::Key_Down,   Qt::Key_Down,      Qt::Key_Left,
                                      Qt::Key_Right,    Qt::Key_Home,   Qt::Key_End,       Qt::Key_PageUp,
                                      Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Return,
                                      Qt::Key_Escape,   Qt::Key_Space,  Qt::Key_F2,        Qt::Key_Menu};
  static constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier,
                                                        Qt::ShiftModifier, Qt::ControlModifier};
  if (qobject_cast<QFileDialog*>(Window())) return CloseDialogs();
  const Qt::Key key = OneOf(kKeys, random_);
  const Qt::KeyboardModifier modifier = OneOf(kModifiers, random_);
  Tell("key " + std::to_string(key));
  QTest::keyClick(KeyTarget(), key, modifier);
}

void Monkey::PressShortcut() {
  static const std::vector<QString> kShortcuts = {
      QStringLiteral("Ctrl+A"),       QStringLiteral("Ctrl+C"),       QStringLiteral("Ctrl+V"),
      QStringLiteral("Ctrl+X"),       QStringLiteral("Ctrl+Z"),       QStringLiteral("Ctrl+Y"),
      QStringLiteral("Ctrl+S"),       QStringLiteral("Ctrl+W"),       QStringLiteral("Ctrl+N"),
      QStringLiteral("Ctrl+O"),       QStringLiteral("Ctrl+K"),       QStringLiteral("Ctrl+F"),
      QStringLiteral("F5"),           QStringLiteral("Ctrl+H"),       QStringLiteral("Ctrl+Tab"),
      QStringLiteral("Ctrl+Shift+S"), QStringLiteral("Ctrl+Shift+F"), QStringLiteral("Ctrl+Del"),
      QStringLiteral("Ctrl+Return"),  QStringLiteral("Ctrl+Home")};
  if (qobject_cast<QFileDialog*>(Window())) return CloseDialogs();
  QKeySequence keys(OneOf(kShortcuts, random_));
  if (Below(4) == 0) keys = QKeySequence(QStringLiteral("Alt+") + QChar(u'A' + Below(26)));
  Tell(keys.toString().toStdString());
  QTest::keySequence(KeyTarget(), keys);
}

void Monkey::TypeText() {
  if (qobject_cast<QFileDialog*>(Window())) return CloseDialogs();
  const QString text = RandomText();
  Tell("type " + text.left(20).toStdString());
  for (const QChar character : text.left(12)) {
    const QPointer<QWidget> target(KeyTarget());
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QApplication::sendEvent(target, &press);
  }
}

void Monkey::PasteText() {
  if (qobject_cast<QFileDialog*>(Window())) return CloseDialogs();
  QApplication::clipboard()->setText(RandomText());
  QTest::keySequence(KeyTarget(), QKeySequence::Paste);
}

void Monkey::ClickWidget() {
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

void Monkey::OpenContextMenu() {
  const auto widgets = VisibleWidgets();
  if (widgets.empty()) return CloseDialogs();
  QWidget* widget = OneOf(widgets, random_);
  const QPoint middle = widget->rect().center();
  Tell("menu of " + widget->objectName().toStdString());
  QContextMenuEvent open(QContextMenuEvent::Mouse, middle, widget->mapToGlobal(middle));
  QApplication::sendEvent(widget, &open);
}

void Monkey::ChooseEntry() {
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

void Monkey::TriggerAction() {
  if (Window() != &window_) return AnswerDialog();
  std::vector<QAction*> actions;
  for (QAction* action : window_.findChildren<QAction*>()) {
    if (action->isEnabled() && !action->menu() && IsHarmless(*action)) actions.push_back(action);
  }
  QAction* action = OneOf(actions, random_);
  Tell("action " + action->text().toStdString());
  action->trigger();
}

void Monkey::DropEntities() {
  if (Window() != &window_) return AnswerDialog();
  std::vector<QAbstractItemView*> lists;
  for (QWidget* widget : VisibleWidgets()) {
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    if (view && view->acceptDrops() && view->objectName() != QLatin1String("network")) lists.push_back(view);
  }
  const auto& entities = window_.Network().Model().Entities();
  client::EntityTree::Nodes nodes;
  for (int i = Below(12); i >= 0 && entities.Count() > 0; --i) {
    const auto entity = static_cast<store::NetworkEntities::Number>(Below(entities.Count()));
    const auto path = entities.Path(entity);
    nodes.push_back({std::string(store::KindText(entities.Kind(entity))) + ":" +
                         std::to_string(entities.Instance(entity)),
                     path.system, path.ecp, path.cell, entities.Instance(entity)});
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

void Monkey::OpenSomeStudy() {
  if (Window() != &window_) return AnswerDialog();
  const auto studies = program_.Store().List();
  if (!studies.empty()) window_.OpenStudy(OneOf(studies, random_).id);
}

void Monkey::ShowPage() {
  std::vector<QTabWidget*> all;
  for (QWidget* widget : VisibleWidgets()) {
    if (auto* tabs = qobject_cast<QTabWidget*>(widget)) all.push_back(tabs);
  }
  if (all.empty()) return PressKey();
  QTabWidget* tabs = OneOf(all, random_);
  tabs->setCurrentIndex(Below(static_cast<std::size_t>(tabs->count())));
}

void Monkey::AnswerDialog() {
  QWidget* dialog = Window();
  if (dialog == &window_) return ClickWidget();
  std::vector<QAbstractButton*> buttons;
  for (auto* button : dialog->findChildren<QAbstractButton*>()) {
    if (button->isVisible() && button->isEnabled()) buttons.push_back(button);
  }
  if (buttons.empty() || qobject_cast<QFileDialog*>(dialog)) return CloseDialogs();
  QAbstractButton* button = OneOf(buttons, random_);
  Tell("answer " + button->text().toStdString());
  button->click();
}

void Monkey::ResizeWindow() {
  window_.resize(400 + Below(1200), 300 + Below(800));
}

}  // namespace kiv::test
