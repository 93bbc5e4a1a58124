#include <QButtonGroup>
#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

#include "qt/control_views.h"
#include "qt/text.h"

namespace kiv::qt {

namespace {

Qt::CheckState ToQtState(ui::CheckState state) {
  switch (state) {
    case ui::CheckState::Unchecked: return Qt::Unchecked;
    case ui::CheckState::Checked: return Qt::Checked;
    case ui::CheckState::Grayed: break;
  }
  return Qt::PartiallyChecked;
}

void ShowCaption(QAbstractButton& button, const std::string& caption) {
  const QString text = ToQt(caption);
  if (button.text() != text) button.setText(text);
}

class CheckBoxView final : public QCheckBox, public ControlView {
 public:
  CheckBoxView(ui::CheckBox& box, QWidget* parent)
      : QCheckBox(parent), ControlView(box, *this), box_(box), changed_(ShowValueOn(box.Changed)) {
    ShowAppearance();
    ShowValue();
  }

  void ShowAppearance() override {
    ControlView::ShowAppearance();
    ShowCaption(*this, box_.Caption());
  }

 protected:
  void ShowValue() override {
    const Qt::CheckState state = ToQtState(static_cast<ui::CheckState>(box_.Value()));
    setTristate(state == Qt::PartiallyChecked);
    setCheckState(state);
  }

  /// The control alone decides what comes after a click.
  void nextCheckState() override {
    Act([this] { box_.Click(); });
  }

 private:
  ui::CheckBox& box_;
  ScopedConnection changed_;
};

class OptionButtonView final : public QRadioButton, public ControlView {
 public:
  OptionButtonView(ui::OptionButton& option, QWidget* parent)
      : QRadioButton(parent),
        ControlView(option, *this),
        option_(option),
        changed_(ShowValueOn(option.Changed)) {
    // The control alone knows which options belong together. Alone in a group the button leaves others as
    // they are, and a screen reader still calls it an option.
    auto* alone = new QButtonGroup(this);
    alone->setExclusive(false);
    alone->addButton(this);
    ShowAppearance();
    ShowValue();
  }

  void ShowAppearance() override {
    ControlView::ShowAppearance();
    ShowCaption(*this, option_.Caption());
  }

 protected:
  void ShowValue() override {
    setChecked(option_.Chosen());
    setFocusPolicy(option_.IsTabStop() ? Qt::StrongFocus : Qt::ClickFocus);
  }

  void nextCheckState() override {
    Act([this] { option_.Click(); });
  }

  /// Qt would stop at every option that once had the focus.
  void focusInEvent(QFocusEvent* event) override {
    QRadioButton::focusInEvent(event);
    if (Alive()) ShowValue();
  }

  void keyPressEvent(QKeyEvent* event) override {
    using Direction = ui::OptionButton::Direction;
    switch (event->key()) {
      case Qt::Key_Up:
      case Qt::Key_Left: Act([this] { option_.Move(Direction::Back); }); return;
      case Qt::Key_Down:
      case Qt::Key_Right: Act([this] { option_.Move(Direction::Forward); }); return;
      default: QRadioButton::keyPressEvent(event);
    }
  }

 private:
  ui::OptionButton& option_;
  ScopedConnection changed_;
};

class ButtonView final : public QPushButton, public ControlView {
 public:
  ButtonView(ui::Button& button, QWidget* parent)
      : QPushButton(parent), ControlView(button, *this), button_(button) {
    setAutoDefault(false);  // the Enter key in a field presses no button
    ShowAppearance();
    connect(this, &QPushButton::clicked, this, [this] { Act([this] { button_.Click(); }); });
  }

  void ShowAppearance() override {
    ControlView::ShowAppearance();
    ShowCaption(*this, button_.Caption());
  }

 private:
  ui::Button& button_;
};

}  // namespace

ControlView* MakeView(ui::CheckBox& control, QWidget* parent) {
  return new CheckBoxView(control, parent);
}

ControlView* MakeView(ui::OptionButton& control, QWidget* parent) {
  return new OptionButtonView(control, parent);
}

ControlView* MakeView(ui::Button& control, QWidget* parent) {
  return new ButtonView(control, parent);
}

}  // namespace kiv::qt
