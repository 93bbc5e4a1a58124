#include "qt/control_view.h"

#include <QPointer>
#include <QTextDocument>
#include <QWidget>
#include <QtDebug>
#include <exception>

#include "host/services.h"
#include "qt/mark_room.h"
#include "qt/text.h"

namespace kiv::qt {

namespace {

/// Only real changes, since each call costs a new layout. What counts is the widget's own state: a host that
/// disables a whole page for a while enables it again.
void SetUse(QWidget& widget, bool enabled, bool visible) {
  if (widget.testAttribute(Qt::WA_ForceDisabled) == enabled) widget.setEnabled(enabled);
  if (widget.isHidden() == visible) widget.setVisible(visible);
}

void ReportHandledError(const std::exception& error) {
  if (host::CurrentServices().errorReporter) {
    host::TheErrorReporter().ReportError();
  } else {
    qWarning("%s", error.what());
  }
}

}  // namespace

ControlView::ControlView(ui::Control& control, QWidget& widget) : control_(control), widget_(widget) {
  widget.setObjectName(ToQt(control.Name()));
  appearanceChanged_ = control.AppearanceChanged.Connect([this] { ShowAppearance(); });
}

void ControlView::ShowAppearance() {
  const bool enabled = control_.Enabled();
  const bool visible = control_.Visible();
  SetUse(widget_, enabled, visible);
  for (QWidget* companion : companions_) SetUse(*companion, enabled, visible);
  if (!mark_.isEmpty()) ShowIcon();
}

void ControlView::AddCompanion(QWidget* companion) {
  companions_.push_back(companion);
  SetUse(*companion, control_.Enabled(), control_.Visible());
}

void ControlView::ShowMark(const QString& message) {
  if (mark_ == message) return;
  mark_ = message;
  // A tool tip that looks like rich text would be shown as such.
  widget_.setToolTip(Qt::mightBeRichText(message) ? message.toHtmlEscaped() : message);
  widget_.setAccessibleDescription(message);
  ShowIcon();
}

void ControlView::ShowIcon() {
  if (markRoom_) markRoom_->Show(widget_.isHidden() ? QString() : widget_.toolTip());
}

void ControlView::Enter() {
  if (Alive() && !control_.HasFocus()) {
    Act([this] { control_.SetFocus(); });
  }
}

void ControlView::Leave(ui::FocusTo to) {
  Act([this, to] { control_.LoseFocus(to); });
}

ScopedConnection ControlView::ShowValueOn(Signal<>& event) {
  return event.Connect([this] { ShowValue(); });
}

bool ControlView::Act(const std::function<void()>& verb) {
  if (!Alive()) return true;
  const QPointer<QWidget> widget(&widget_);  // the verb may close the page
  try {
    verb();
  } catch (const std::exception& error) {
    ReportHandledError(error);
  }
  if (!widget) return false;
  if (Alive()) ShowValue();
  return true;
}

}  // namespace kiv::qt
