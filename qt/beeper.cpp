#include "qt/beeper.h"

#include <QApplication>

namespace kiv::qt {

void Beeper::Beep() {
  QApplication::beep();
}

}  // namespace kiv::qt
