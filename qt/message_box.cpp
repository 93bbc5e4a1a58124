#include "qt/message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <utility>

#include "qt/text.h"

namespace kiv::qt {

MessageBoxes::MessageBoxes(std::function<std::string()> applicationTitle)
    : applicationTitle_(std::move(applicationTitle)) {}

void MessageBoxes::Show(const std::string& text, host::MessageStyle style, const std::string& title) {
  const auto icon = style == host::MessageStyle::Critical ? QMessageBox::Critical : QMessageBox::Warning;
  // The window below may be closed, with its box, while the message is shown.
  const QPointer<QMessageBox> box =
      new QMessageBox(icon, ToQt(title), ToQt(text), QMessageBox::Ok, QApplication::activeWindow());
  box->setTextFormat(Qt::PlainText);
  box->exec();
  delete box;
}

}  // namespace kiv::qt
