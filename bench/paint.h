#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>

#include "timing.h"

namespace kiv::bench {

/// Sees a widget being painted.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
  bool Painted() const { return painted_; }
  bool eventFilter(QObject*, QEvent* event) override {
    painted_ = painted_ || event->type() == QEvent::Paint;
    return false;
  }

 private:
  bool painted_ = false;
};

/// Milliseconds from the beginning of an action until what it changes is painted.
template <class Action>
double MillisecondsUntilPainted(QWidget& widget, const Action& action) {
  return Milliseconds([&] {
    const PaintWatch watch(widget);
    action();
    while (!watch.Painted()) QApplication::processEvents();
  });
}

}  // namespace kiv::bench
