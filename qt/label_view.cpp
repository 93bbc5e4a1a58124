#include <QGroupBox>
#include <QLabel>

#include "qt/control_views.h"
#include "qt/text.h"
#include "ui/caption.h"

namespace kiv::qt {

namespace {

class LabelView final : public QLabel, public ControlView {
 public:
  LabelView(ui::Label& label, QWidget* parent) : QLabel(parent), ControlView(label, *this), label_(label) {
    setTextFormat(Qt::PlainText);
    ShowAppearance();
  }

  /// A label of a field underlines its mnemonic.
  void ShowAppearance() override {
    ControlView::ShowAppearance();
    const QString shown = ToQt(buddy() ? label_.Caption() : ui::PlainCaption(label_.Caption()));
    if (shown != text()) setText(shown);
  }

 private:
  ui::Label& label_;
};

class FrameView final : public QGroupBox, public ControlView {
 public:
  FrameView(ui::Frame& frame, QWidget* parent) : QGroupBox(parent), ControlView(frame, *this), frame_(frame) {
    ShowAppearance();
  }

  void ShowAppearance() override {
    ControlView::ShowAppearance();
    const QString caption = ToQt(frame_.Caption());
    if (caption != title()) setTitle(caption);
  }

 private:
  ui::Frame& frame_;
};

}  // namespace

ControlView* MakeView(ui::Label& control, QWidget* parent) {
  return new LabelView(control, parent);
}

ControlView* MakeView(ui::Frame& control, QWidget* parent) {
  return new FrameView(control, parent);
}

}  // namespace kiv::qt
