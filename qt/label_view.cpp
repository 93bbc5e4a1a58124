#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>

#include "qt/control_views.h"
#include "qt/text.h"

namespace kiv::qt {

namespace {

class LabelView final : public QLabel, public ControlView {
 public:
  LabelView(ui::Label& label, QWidget* parent) : QLabel(parent), ControlView(label, *this), label_(label) {
    setTextFormat(Qt::PlainText);
    ShowAppearance();
  }

  /// A label of a field underlines its mnemonic and names the field.
  void ShowAppearance() override {
    ControlView::ShowAppearance();
    const QString shown = buddy() ? ToQt(label_.Caption()) : PlainCaption(label_.Caption());
    if (shown != text()) setText(shown);
    // A button or box goes by its own caption.
    if (buddy() && !qobject_cast<QAbstractButton*>(buddy())) {
      buddy()->setAccessibleName(SpokenLabel(label_.Caption()));
    }
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
    if (caption == title()) return;
    setTitle(caption);
    setAccessibleName(PlainCaption(frame_.Caption()));
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
