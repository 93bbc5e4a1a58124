#pragma once

#include <QPoint>
#include <QString>
#include <Qt>
#include <functional>
#include <vector>

class QWidget;

namespace kiv::client {

/// Works the program as a user does: with keys and mouse clicks on what is visible. Raises std::runtime_error
/// when a thing is not there or cannot be used.
class UserHand {
 public:
  /// Screenshots go into this folder; none are made when it is empty.
  explicit UserHand(QString pictureFolder);

  /// The visible widget of this object name in the active window.
  QWidget* Find(const QString& name) const;
  /// What a box, a label or a drop-down list shows.
  QString TextOf(const QString& name) const;
  void Click(const QString& name) const;
  /// Picks a page of the tab widget of this name.
  void ClickTab(const QString& tabWidget, int index) const;
  /// Replaces the text of a box.
  void Fill(const QString& name, const QString& text) const;
  /// Picks an entry of a drop-down list with the keyboard.
  void Choose(const QString& name, const QString& entry) const;
  /// Presses a key wherever the focus is.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
  void Type(const QString& text) const;
  /// Where keys go: the widget with the focus, or the window itself.
  QWidget* KeyTarget() const;
  /// The left edge of a widget: a click beside a check box's caption would miss.
  static QPoint EdgeOf(const QWidget& widget);
  /// Drops something of a format; whether the widget took it.
  static bool Drop(QWidget& target, const char* format);

  using InDialog = std::function<void(QWidget& dialog)>;
  /// Runs an action that opens dialogs, and meanwhile what the user does with each of them.
  void During(const std::function<void()>& action, const std::vector<InDialog>& inDialogs) const;
  void During(const std::function<void()>& action, const InDialog& inDialog) const;
  /// The text of the message that an action shows; it is read and closed.
  QString MessageDuring(const std::function<void()>& action, const QString& picture = {}) const;

  /// Lets the program do what it has put off, such as its live marks.
  void Wait(int milliseconds) const;
  void TakePicture(const QString& name) const;

 private:
  QString pictureFolder_;
};

}  // namespace kiv::client
