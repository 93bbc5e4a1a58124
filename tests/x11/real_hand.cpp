#include "x11/real_hand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
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

void DoAt(const QPoint& point, const QStringList& commands) {
  Do(QStringList{"mousemove", QString::number(point.x()), QString::number(point.y())} + commands);
}

/// The left edge: a click beside a check box's caption would miss.
std::optional<QPoint> PlaceOn(const QWidget& widget) {
  if (!widget.isEnabled() || widget.visibleRegion().isEmpty()) return {};
  const int fromLeft = std::min(widget.width(), widget.height()) / 2;
  return widget.mapToGlobal(QPoint(fromLeft, widget.height() / 2));
}

std::optional<QPoint> PlaceIn(const QAbstractItemView& view, const QRect& rect) {
  const QPoint center = rect.center();
  if (rect.isEmpty() || !view.viewport()->rect().contains(center)) return {};
  return view.viewport()->mapToGlobal(center);
}

/// A place that is looked up in the visible widget of this name.
template <class Type>
RealHand::Place PlaceOf(const QString& name, const std::function<std::optional<QPoint>(const Type&)>& look) {
  return {name.toStdString(), [=]() -> std::optional<QPoint> {
            const auto* widget = qobject_cast<Type*>(RealHand::Find(name));
            return widget ? look(*widget) : std::nullopt;
          }};
}

QPoint Reach(const RealHand::Place& place) {
  std::optional<QPoint> reached;
  WaitUntil(place.name + " can be reached", [&] { return (reached = place.look()).has_value(); });
  return *reached;
}

/// Moves to and fro about a point until something comes of it: moves that follow close on one another may
/// reach the window as one.
void MoveUntil(const std::string& what, const QPoint& point, const std::function<bool()>& condition) {
  int step = 0;
  WaitUntil(what, condition, [&] { DoAt(point + QPoint(++step % 2, 0), {}); });
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
    meanwhile ? meanwhile() : std::this_thread::sleep_for(5ms);
  }
}

QWidget* RealHand::Find(const QString& name) {
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible() || window->windowType() != Qt::Window) continue;
    for (QWidget* widget : window->findChildren<QWidget*>(name)) {
      if (widget->isVisible()) return widget;
    }
  }
  return nullptr;
}

RealHand::Place RealHand::Widget(const QString& name) {
  return PlaceOf<QWidget>(name, PlaceOn);
}

RealHand::Place RealHand::Page(const QString& tabWidget, int index) {
  return PlaceOf<QTabWidget>(tabWidget, [=](const QTabWidget& tabs) {
    return tabs.tabBar()->mapToGlobal(tabs.tabBar()->tabRect(index).center());
  });
}

RealHand::Place RealHand::Row(const QString& name, const std::function<QModelIndex()>& findRow) {
  return PlaceOf<QAbstractItemView>(
      name, [=](const QAbstractItemView& view) { return PlaceIn(view, view.visualRect(findRow())); });
}

RealHand::Place RealHand::RowBox(const QString& name, int row) {
  return PlaceOf<QAbstractItemView>(name, [=](const QAbstractItemView& view) {
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.rect = view.visualRect(view.model()->index(row, 0));
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    return PlaceIn(view, view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view));
  });
}

void RealHand::Click(const Place& place) const {
  DoAt(Reach(place), {"click", "1"});
}

void RealHand::ClickWith(const char* modifier, const Place& place) const {
  DoAt(Reach(place), {"keydown", modifier, "click", "1", "keyup", modifier});
}

void RealHand::DoubleClick(const Place& place) const {
  DoAt(Reach(place), {"click", "--repeat", "2", "1"});
}

void RealHand::Fill(const QString& name, const QString& text) const {
  Click(Widget(name));
  WaitUntil(name.toStdString() + " has the focus", [&] { return Find(name)->hasFocus(); });
  Do({"key", "ctrl+a", "key", "Delete", "type", "--delay", "1", text});
  WaitUntil(name.toStdString() + " shows what was typed",
            [&] { return qobject_cast<QLineEdit*>(Find(name))->text() == text; });
}

void RealHand::Choose(const QString& comboBox, const QString& entry) const {
  const auto& list = *InWindows([&] { return qobject_cast<QComboBox*>(Find(comboBox)); });
  Click(Widget(comboBox));
  Click({entry.toStdString(), [&]() -> std::optional<QPoint> {
           const QAbstractItemView& view = *list.view();
           if (!view.isVisible()) return {};
           return PlaceIn(view, view.visualRect(view.model()->index(list.findText(entry), 0)));
         }});
  WaitUntil("the entry is chosen", [&] { return list.currentText() == entry && !list.view()->isVisible(); });
}

std::vector<std::string> RealHand::Drag(const Place& from, const Place& to) const {
  const QPoint start = Reach(from);
  DoAt(start, {"mousedown", "1"});
  MoveUntil("the drag has begun", start + QPoint(kWellBeyondAClick, 0), isDragging);
  MoveUntil("the pointer says that this place takes the drag", Reach(to), [] {
    const QCursor* cursor = QApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::DragCopyCursor;
  });
  Do({"mouseup", "1"});
  std::vector<std::string> messages;
  while (true) {
    WaitUntil("the drop has come to an end", [this] { return Message() || !isDragging(); });
    QMessageBox* const message = InWindows(Message);
    if (!message) return messages;
    messages.push_back(InWindows([&] { return message->text().toStdString(); }));
    Click({"the OK of a message", [&] { return PlaceOn(*message->button(QMessageBox::Ok)); }});
    WaitUntil("the message is gone", [&] { return Message() != message; });
  }
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
