#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "base/signal.h"
#include "ui/control.h"

class QWidget;

namespace kiv::qt {

class MarkRoom;

/// What every widget that shows a control has in common; the second base of such a widget.
///
/// The widget follows the control's events. What the user does goes to the control as a user's verb, and the
/// widget then shows what the control made of it. A widget whose control is gone stays as it was.
class ControlView {
 public:
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  /// Whether the control still exists; nothing but Widget() may be used when it does not.
  bool Alive() const { return appearanceChanged_.Connected(); }
  ui::Control& Control() const { return control_; }
  QWidget& Widget() const { return widget_; }

  /// Shows whether the control is enabled and visible, and its caption.
  virtual void ShowAppearance();

  /// A widget that is enabled and visible together with this one: a fixed text or a label of it.
  void AddCompanion(QWidget* companion);

  /// Where the icon of a mark goes; without it a mark is a tool tip only.
  void SetMarkRoom(MarkRoom* room) { markRoom_ = room; }
  /// Says what is wrong with the control; an empty message takes the mark away.
  void ShowMark(const QString& message);

  /// The input focus came to the widget, or left it.
  void Enter();
  void Leave(ui::FocusTo to);

 protected:
  ControlView(ui::Control& control, QWidget& widget);

  virtual void ShowValue() {}
  /// Shows the value whenever the event is raised.
  ScopedConnection ShowValueOn(Signal<>& event);
  /// Runs a user's verb and shows the value that it left. An exception, which could not pass through Qt, goes
  /// to the host's error reporter. False when the verb closed the page: nothing of this view is left then.
  bool Act(const std::function<void()>& verb);

 private:
  /// A hidden control has no icon.
  void ShowIcon();

  ui::Control& control_;
  QWidget& widget_;
  std::vector<QWidget*> companions_;
  MarkRoom* markRoom_ = nullptr;
  QString mark_;
  ScopedConnection appearanceChanged_;
};

}  // namespace kiv::qt
