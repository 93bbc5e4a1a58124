#include "support/user_hand.h"

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QPixmap>
#include <QPointer>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace kiv::client {

namespace {

constexpr int kSettleMs = 60;  // layouts and closed editors catch up

[[noreturn]] void Fail(const QString& what) {
  throw std::runtime_error(what.toStdString());
}

/// Without a window manager nobody gives the focus back when a dialog has closed; then this does.
QWidget* ActiveWindow() {
  if (QWidget* menu = QApplication::activePopupWidget()) return menu;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* window = QApplication::activeWindow()) return window;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    QApplication::setActiveWindow(window);
    return window;
  }
  Fail(QStringLiteral("no window is open"));
}

}  // namespace

UserHand::UserHand(QString pictureFolder) : pictureFolder_(std::move(pictureFolder)) {}

QWidget* UserHand::Find(const QString& name) const {
  for (QWidget* widget : ActiveWindow()->findChildren<QWidget*>(name)) {
    if (widget->isVisible()) return widget;
  }
  Fail(QStringLiteral("nothing visible is named ") + name);
}

QString UserHand::TextOf(const QString& name) const {
  const QWidget* widget = Find(name);
  const bool isList = qobject_cast<const QComboBox*>(widget) != nullptr;
  return widget->property(isList ? "currentText" : "text").toString();
}

void UserHand::Click(const QString& name) const {
  QWidget* widget = Find(name);
  if (!widget->isEnabled()) Fail(name + QStringLiteral(" cannot be used now"));
  QTest::mouseClick(widget, Qt::LeftButton, {}, EdgeOf(*widget));
}

void UserHand::ClickTab(const QString& tabWidget, int index) const {
  auto* tabs = qobject_cast<QTabWidget*>(Find(tabWidget));
  QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(index).center());
  if (tabs->currentIndex() != index) Fail(QStringLiteral("the tab did not come forward"));
}

void UserHand::Fill(const QString& name, const QString& text) const {
  Click(name);
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_Delete);
  Type(text);
}

void UserHand::Choose(const QString& name, const QString& entry) const {
  auto* list = qobject_cast<QComboBox*>(Find(name));
  const int index = list->findText(entry);
  if (index < 0) Fail(entry + QStringLiteral(" is not in the list ") + name);
  list->setFocus();
  Press(Qt::Key_Home);
  for (int i = 0; i < index; ++i) Press(Qt::Key_Down);
  if (list->currentText() != entry) Fail(entry + QStringLiteral(" could not be picked"));
}

void UserHand::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
  QTest::keyClick(KeyTarget(), key, modifiers);
}

void UserHand::Type(const QString& text) const {
  for (const QChar character : text) QTest::keyClick(KeyTarget(), character.toLatin1());
}

QWidget* UserHand::KeyTarget() const {
  QWidget* window = ActiveWindow();
  QWidget* focused = window->focusWidget();
  return focused && focused->isVisible() ? focused : window;
}

QPoint UserHand::EdgeOf(const QWidget& widget) {
  return {std::min(widget.width(), widget.height()) / 2, widget.height() / 2};
}

bool UserHand::Drop(QWidget& target, const char* format) {
  QMimeData data;
  data.setData(QLatin1String(format), "x");
  const QPoint where(20, 40);
  QDragEnterEvent enter(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&target, &enter);
  if (!enter.isAccepted()) return false;
  QDropEvent drop(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&target, &drop);
  return true;
}

void UserHand::During(const std::function<void()>& action, const InDialog& inDialog) const {
  During(action, std::vector<InDialog>{inDialog});
}

void UserHand::During(const std::function<void()>& action, const std::vector<InDialog>& inDialogs) const {
  constexpr int kLookEveryMs = 20;
  constexpr int kPatienceMs = 5000;
  std::size_t seen = 0;
  QPointer<QWidget> last;
  std::exception_ptr failure;
  QTimer look;
  QTimer patience;
  patience.setSingleShot(true);
  QObject::connect(&look, &QTimer::timeout, [&] {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog || dialog == last || seen == inDialogs.size()) return;
    last = dialog;
    QApplication::setActiveWindow(dialog);  // a key that comes sooner would still go to what is behind it
    try {
      inDialogs[seen++](*dialog);
    } catch (...) {
      failure = std::current_exception();
      dialog->close();
    }
  });
  look.start(kLookEveryMs);
  patience.start(kPatienceMs);
  action();
  while (seen < inDialogs.size() && !failure && patience.isActive()) QTest::qWait(kLookEveryMs);
  if (failure) std::rethrow_exception(failure);
  if (seen < inDialogs.size()) Fail(QStringLiteral("no dialog appeared"));
}

QString UserHand::MessageDuring(const std::function<void()>& action, const QString& picture) const {
  QString text;
  During(action, [&](QWidget& dialog) {
    const auto* message = qobject_cast<QMessageBox*>(&dialog);
    if (!message) Fail(QStringLiteral("a dialog appeared that is no message"));
    text = message->text();
    if (!picture.isEmpty()) TakePicture(picture);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  return text;
}

void UserHand::Wait(int milliseconds) const {
  QTest::qWait(milliseconds);
}

void UserHand::TakePicture(const QString& name) const {
  if (pictureFolder_.isEmpty()) return;
  Wait(kSettleMs);
  const QString file = pictureFolder_ + QLatin1Char('/') + name + QStringLiteral(".png");
  if (!ActiveWindow()->grab().save(file)) Fail(QStringLiteral("cannot write ") + file);
}

}  // namespace kiv::client
