#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include "database/wait.h"

class QLabel;

namespace kiv::client {

/// What the window shows while the database keeps it waiting for more than a second: for what, for how long,
/// and Cancel. The windows are painted meanwhile and take no input; what was typed stays. Timers rest, so
/// that nothing asks the database within its own wait.
class WaitBox : public QObject {
 public:
  WaitBox();
  ~WaitBox() override;

  /// The handler of a connection. Once cancelled, everything is given up until the program is back at rest.
  bool GoOn(const database::Wait& wait);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void Show(const database::Wait& wait);
  void Rest();

  QPointer<QDialog> dialog_;  ///< hidden at rest, because a message may already have it as its parent
  QLabel* text_ = nullptr;
  QElapsedTimer sinceRest_;
  QTimer rest_;  ///< fires as soon as nothing is waited for
  bool cancelled_ = false;
};

}  // namespace kiv::client
