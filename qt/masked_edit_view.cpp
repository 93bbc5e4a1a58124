#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include "qt/control_views.h"
#include "qt/text.h"

namespace kiv::qt {

namespace {

/// The box edits nothing itself: each key goes to the control, which knows where its literals stand.
class MaskedEditView final : public QLineEdit, public ControlView {
 public:
  MaskedEditView(ui::MaskedEdit& edit, QWidget* parent)
      : QLineEdit(parent),
        ControlView(edit, *this),
        edit_(edit),
        changed_(ShowValueOn(edit.Changed)),
        maskChanged_(ShowValueOn(edit.MaskChanged)) {
    ShowAppearance();
    ShowValue();
    // What comes past the keyboard, such as a drop or the context menu.
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
      const auto caret = static_cast<std::size_t>(cursorPosition());
      Act([this, &text, caret] { edit_.Edit(FromQt(text), caret); });
    });
  }

 protected:
  void ShowValue() override {
    setPlaceholderText(ToQt(edit_.Mask()));
    const QString shown = ToQt(edit_.Text());
    if (shown != text()) setText(shown);
    setCursorPosition(static_cast<int>(edit_.CaretPosition()));
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (!Alive() || !Edits(*event)) QLineEdit::keyPressEvent(event);
  }

  /// A committed text is all that came; the shown text would not tell it from the mask's own digits.
  void inputMethodEvent(QInputMethodEvent* event) override {
    const QString committed = event->commitString();
    if (!Alive() || committed.isEmpty() || event->replacementLength() != 0) {
      return QLineEdit::inputMethodEvent(event);
    }
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QLineEdit::inputMethodEvent(&composing);
    Do([&] { edit_.Paste(FromQt(committed)); });
  }

 private:
  bool Edits(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Paste)) {
      Do([this] { edit_.Paste(FromQt(QGuiApplication::clipboard()->text())); });
    } else if (event.matches(QKeySequence::Cut)) {
      copy();
      if (hasSelectedText()) Do([this] { edit_.Delete(); });
    } else if (event.key() == Qt::Key_Backspace) {
      Do([this] { edit_.Backspace(); });
    } else if (event.key() == Qt::Key_Delete) {
      Do([this] { edit_.Delete(); });
    } else if (event.key() == Qt::Key_Left && event.modifiers() == Qt::NoModifier) {
      Do([this] { edit_.MoveLeft(); });
    } else if (event.key() == Qt::Key_Right && event.modifiers() == Qt::NoModifier) {
      Do([this] { edit_.MoveRight(); });
    } else if (IsTyped(event)) {
      Do([&] { edit_.Type(FromQt(event.text())); });
    } else {
      return false;
    }
    return true;
  }

  static bool IsTyped(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !event.text().isEmpty() && event.text().at(0).isPrint() && modifiers == Qt::NoModifier;
  }

  /// Carries out a verb where the cursor and the selection stand.
  void Do(const std::function<void()>& verb) {
    const int cursor = cursorPosition();
    const int anchor = !hasSelectedText()           ? cursor
                       : cursor == selectionStart() ? selectionEnd()
                                                    : selectionStart();
    Act([&] {
      edit_.Select(static_cast<std::size_t>(anchor), static_cast<std::size_t>(cursor));
      verb();
    });
  }

  ui::MaskedEdit& edit_;
  ScopedConnection changed_;
  ScopedConnection maskChanged_;
};

}  // namespace

ControlView* MakeView(ui::MaskedEdit& control, QWidget* parent) {
  return new MaskedEditView(control, parent);
}

}  // namespace kiv::qt
