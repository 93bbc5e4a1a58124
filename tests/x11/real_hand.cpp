#include "x11/real_hand.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QStyleOptionViewItem>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace kiv::test {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kLongestWait = 30s;
constexpr int kWellBeyondAClick = 40;  // pixels

/// Has the X server do something with its pointer and its keyboard, and waits until it is done.
void Do(const QStringList& commands) {
  const int result = QProcess::execute(QStringLiteral("xdotool"), commands);
  if (result == -2) throw std::runtime_error("xdotool is not installed; run scripts/setup.sh test.");
  if (result != 0) throw std::runtime_error("xdotool failed: " + commands.join(' ').toStdString());
}

QStringList MoveTo(const QPoint& point) {
  return {QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y())};
}

/// The window that takes the user's input.
QWidget* TopWindow() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowType() == Qt::Window) return window;
  }
  return nullptr;
}

/// The left edge: a click beside a check box's caption would miss.
std::optional<QPoint> PlaceOn(const QWidget& widget) {
  if (!widget.isEnabled() || widget.visibleRegion().isEmpty()) return {};
  const int fromLeft = std::min(widget.width(), widget.height()) / 2;
  return widget.mapToGlobal(QPoint(fromLeft, widget.height() / 2));
}

template <class Type>
Type* FindAs(const QString& name) {
  return qobject_cast<Type*>(RealHand::Find(name));
}

std::optional<QPoint> PlaceIn(const QAbstractItemView& view, const QRect& rect) {
  const QPoint center = rect.center();
  if (rect.isEmpty() || !view.viewport()->rect().contains(center)) return {};
  return view.viewport()->mapToGlobal(center);
}

/// Moves to and fro about a point until something comes of it: moves that follow close on one another may
/// reach the window as one.
void MoveUntil(const std::string& what, const QPoint& point, const std::function<bool()>& condition) {
  int step = 0;
  WaitUntil(what, condition, [&] { Do(MoveTo(point + QPoint(++step % 2, 0))); });
}

QMessageBox* Message() {
  return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

}  // namespace

void WaitUntil(const std::string& what, const std::function<bool()>& condition,
               const std::function<void()>& meanwhile) {
  const auto giveUp = Clock::now() + kLongestWait;
  while (!InWindows(condition)) {
    if (Clock::now() > giveUp) throw std::runtime_error("Waited in vain until " + what + ".");
    meanwhile();
  }
}

QWidget* RealHand::Find(const QString& name) {
  const QWidget* window = TopWindow();
  if (!window) return nullptr;
  const auto widgets = window->findChildren<QWidget*>(name);
  const auto visible =
      std::ranges::find_if(widgets, [](const QWidget* widget) { return widget->isVisible(); });
  return visible == widgets.end() ? nullptr : *visible;
}

RealHand::Place RealHand::Widget(const QString& name) {
  return {name.toStdString(), [=]() -> std::optional<QPoint> {
            const QWidget* widget = Find(name);
            if (!widget) return {};
            return PlaceOn(*widget);
          }};
}

RealHand::Place RealHand::Button(const QString& caption) {
  return {caption.toStdString(), [=]() -> std::optional<QPoint> {
            const QWidget* window = TopWindow();
            if (!window) return {};
            for (const auto* button : window->findChildren<QAbstractButton*>()) {
              if (button->isVisible() && button->text() == caption) return PlaceOn(*button);
            }
            return {};
          }};
}

RealHand::Place RealHand::Page(const QString& tabWidget, int index) {
  return {"page " + std::to_string(index) + " of " + tabWidget.toStdString(), [=]() -> std::optional<QPoint> {
            const auto* tabs = FindAs<QTabWidget>(tabWidget);
            if (!tabs) return {};
            return tabs->tabBar()->mapToGlobal(tabs->tabBar()->tabRect(index).center());
          }};
}

RealHand::Place RealHand::Row(const QString& name, const FindRow& findRow) {
  return {"a row of " + name.toStdString(), [=]() -> std::optional<QPoint> {
            const auto* view = FindAs<QAbstractItemView>(name);
            if (!view) return {};
            return PlaceIn(*view, view->visualRect(findRow()));
          }};
}

RealHand::Place RealHand::Row(const QString& name, int row) {
  return Row(name, [=] { return FindAs<QAbstractItemView>(name)->model()->index(row, 0); });
}

RealHand::Place RealHand::RowBox(const QString& name, int row) {
  return {"the check box in row " + std::to_string(row) + " of " + name.toStdString(),
          [=]() -> std::optional<QPoint> {
            const auto* view = FindAs<QAbstractItemView>(name);
            if (!view) return {};
            QStyleOptionViewItem option;
            option.initFrom(view);
            option.rect = view->visualRect(view->model()->index(row, 0));
            option.features = QStyleOptionViewItem::HasCheckIndicator;
            return PlaceIn(
                *view, view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view));
          }};
}

QPoint RealHand::Reach(const Place& place) {
  QPoint reached;
  WaitUntil(place.name + " can be reached", [&] {
    const auto point = place.look();
    if (point) reached = *point;
    return point.has_value();
  });
  return reached;
}

void RealHand::Click(const Place& place) const {
  Do(MoveTo(Reach(place)) + QStringList{"click", "1"});
}

void RealHand::ClickWith(const char* modifier, const Place& place) const {
  Do(MoveTo(Reach(place)) + QStringList{"keydown", modifier, "click", "1", "keyup", modifier});
}

void RealHand::DoubleClick(const Place& place) const {
  Do(MoveTo(Reach(place)) + QStringList{"click", "--repeat", "2", "1"});
}

void RealHand::Press(const char* keys) const {
  Do({"key", keys});
}

void RealHand::Fill(const QString& name, const QString& text) const {
  Click(Widget(name));
  WaitUntil(name.toStdString() + " has the focus", [&] {
    const QWidget* box = Find(name);
    return box && box->hasFocus();
  });
  Do({"key", "ctrl+a", "key", "Delete"});
  if (!text.isEmpty()) Do({"type", "--delay", "1", text});
  WaitUntil(name.toStdString() + " shows what was typed", [&] {
    const auto* box = FindAs<QLineEdit>(name);
    return box && box->text() == text;
  });
}

void RealHand::Choose(const QString& comboBox, const QString& entry) const {
  const auto* list = InWindows([&] { return FindAs<QComboBox>(comboBox); });
  if (!list) throw std::runtime_error("No list " + comboBox.toStdString() + " to choose from.");
  Click(Widget(comboBox));
  Click({entry.toStdString(), [&]() -> std::optional<QPoint> {
           const QAbstractItemView& view = *list->view();
           if (!view.isVisible()) return {};
           return PlaceIn(view, view.visualRect(view.model()->index(list->findText(entry), 0)));
         }});
  WaitUntil("the entry is chosen",
            [&] { return list->currentText() == entry && !list->view()->isVisible(); });
}

std::vector<std::string> RealHand::Drag(const Place& from, const Place& to) const {
  const QPoint start = Reach(from);
  Do(MoveTo(start) + QStringList{"mousedown", "1"});
  MoveUntil("the drag has begun", start + QPoint(kWellBeyondAClick, 0), isDragging);
  MoveUntil("the pointer says that this place takes the drag", Reach(to), [] {
    const QCursor* cursor = QApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::DragCopyCursor;
  });
  Do({"mouseup", "1"});
  std::vector<std::string> messages;
  while (true) {
    WaitUntil("the drop has come to an end", [this] { return Message() || !isDragging(); });
    if (!InWindows([] { return Message() != nullptr; })) return messages;
    messages.push_back(AnswerMessage());
  }
}

std::string RealHand::AnswerMessage() const {
  QMessageBox* message = nullptr;
  WaitUntil("a message appears", [&] { return (message = Message()) != nullptr; });
  const std::string text = InWindows([&] { return message->text().toStdString(); });
  Click({"the OK of a message", [&] { return PlaceOn(*message->button(QMessageBox::Ok)); }});
  WaitUntil("the message is gone", [&] { return Message() != message; });
  return text;
}

void RealHand::LetGo() const {
  Do({"mouseup", "1"});
  WaitUntil("every dialog is closed", [] {
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog) dialog->close();
    return !dialog;
  });
}

}  // namespace kiv::test
