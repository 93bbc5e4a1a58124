#pragma once

#include <QMessageBox>

#include "client/program.h"

namespace kiv::client {

/// A question over a window. What it says is plain text: the name of a study may look like markup.
class Question : public QMessageBox {
 public:
  Question(Program& program, Icon icon, const QString& text, StandardButtons buttons, QWidget* parent)
      : QMessageBox(icon, QString::fromStdString(program.Settings().ApplicationTitle()), text, buttons,
                    parent) {
    setTextFormat(Qt::PlainText);
  }
};

}  // namespace kiv::client
