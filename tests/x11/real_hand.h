#pragma once

#include <QCoreApplication>
#include <QMetaObject>
#include <QPoint>
#include <QString>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

class QModelIndex;
class QWidget;

namespace kiv::test {

/// Runs work in the thread of the windows, between two of its events, and hands on what it gives or raises.
template <class Work>
auto InWindows(const Work& work) {
  std::packaged_task<std::invoke_result_t<Work>()> task(std::cref(work));
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [&task] { task(); }, Qt::BlockingQueuedConnection);
  return task.get_future().get();
}

/// Waits until something holds in the windows. Raises std::runtime_error when it never does.
void WaitUntil(const std::string& what, const std::function<bool()>& condition,
               const std::function<void()>& meanwhile = {});

/// A user in front of the display: works the pointer and the keyboard of the X server, from another thread
/// than that of the windows. Raises std::runtime_error when a thing does not come up or cannot be used.
class RealHand {
 public:
  /// A place on the display, looked up in the thread of the windows; none while it cannot be reached.
  struct Place {
    std::string name;
    std::function<std::optional<QPoint>()> look;
  };

  /// Where the visible widget of this object name can be clicked.
  static Place Widget(const QString& name);
  static Place Page(const QString& tabWidget, int index);
  static Place Row(const QString& view, const std::function<QModelIndex()>& findRow);
  /// The check box of the row.
  static Place RowBox(const QString& view, int row);

  /// The visible widget of this object name in the main window; null when there is none. For the thread of
  /// the windows.
  static QWidget* Find(const QString& name);

  void Click(const Place& place) const;
  void ClickWith(const char* modifier, const Place& place) const;
  void DoubleClick(const Place& place) const;
  /// Replaces the text of a box.
  void Fill(const QString& name, const QString& text) const;
  void Choose(const QString& comboBox, const QString& entry) const;

  /// Drags from one place to another that takes it. Answers the messages that come of it, and what they said.
  std::vector<std::string> Drag(const Place& from, const Place& to) const;
  /// Lets go of everything, whatever state a failure left.
  void LetGo() const;

  /// Whether something is being dragged out of the program's tree.
  std::function<bool()> isDragging = [] { return false; };
};

}  // namespace kiv::test
