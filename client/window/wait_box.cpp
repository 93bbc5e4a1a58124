#include "client/window/wait_box.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace kiv::client {

namespace {

constexpr qint64 kPatienceMs = 1000;

QString Reason(database::Wait::For what) {
  switch (what) {
    case database::Wait::For::Connection: return QStringLiteral("Connecting to the study database");
    case database::Wait::For::Answer: return QStringLiteral("Waiting for an answer of the study database");
    case database::Wait::For::Lock:
      return QStringLiteral("Another program holds the study database; waiting for it");
  }
  return {};
}

}  // namespace

WaitBox::WaitBox() {
  rest_.setSingleShot(true);
  connect(&rest_, &QTimer::timeout, this, [this] { Rest(); });
}

WaitBox::~WaitBox() {
  delete dialog_;
}

bool WaitBox::GoOn(const database::Wait& wait) {
  if (cancelled_) return false;
  if (!sinceRest_.isValid()) {
    sinceRest_.start();
    rest_.start(0);
  }
  if (sinceRest_.elapsed() + 100 < kPatienceMs) return true;
  Show(wait);
  QApplication::instance()->installEventFilter(this);
  QApplication::processEvents();
  QApplication::instance()->removeEventFilter(this);
  return !cancelled_;
}

void WaitBox::Show(const database::Wait& wait) {
  if (!dialog_) {
    dialog_ = new QDialog(QApplication::activeWindow());
    dialog_->setObjectName(QStringLiteral("wait"));
    dialog_->setWindowTitle(QStringLiteral("Please wait"));
    dialog_->setWindowModality(Qt::ApplicationModal);
    text_ = new QLabel(dialog_);
    // Whoever goes on typing must not press the button by a blank; Escape does it.
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, dialog_);
    buttons->button(QDialogButtonBox::Cancel)->setFocusPolicy(Qt::NoFocus);
    buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
    auto* all = new QVBoxLayout(dialog_);
    all->addWidget(text_);
    all->addWidget(new QLabel(QStringLiteral("What you have entered stays here."), dialog_));
    all->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, dialog_, &QDialog::reject);
    connect(dialog_, &QDialog::rejected, this, [this] { cancelled_ = true; });
  }
  text_->setText(
      QStringLiteral("%1 ... %L2 s").arg(Reason(wait.what)).arg((sinceRest_.elapsed() + 100) / 1000));
  dialog_->show();
}

void WaitBox::Rest() {
  if (dialog_) dialog_->hide();
  sinceRest_.invalidate();
  cancelled_ = false;
}

bool WaitBox::eventFilter(QObject* receiver, QEvent* event) {
  return event->type() == QEvent::Timer && receiver != dialog_;
}

}  // namespace kiv::client
