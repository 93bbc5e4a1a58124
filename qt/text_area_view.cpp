#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextCursor>

#include "qt/control_views.h"
#include "qt/text.h"
#include "qt/typed_text.h"

namespace kiv::qt {

namespace {

/// Room for short lines; more of it when the page has more.
constexpr int kLeastTextCharacters = 16;
constexpr int kLeastTextLines = 4;
constexpr int kUsualTextLines = 8;

class TextAreaView final : public TypedTextView<QPlainTextEdit> {
 public:
  TextAreaView(ui::TextArea& area, QWidget* parent)
      : TypedTextView(area, parent), area_(area), changed_(ShowValueOn(area.Changed)) {
    setTabChangesFocus(true);
    ShowAppearance();
    ShowValue();
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
      const std::string edited = FromQt(toPlainText());
      const auto caret = static_cast<std::size_t>(textCursor().position());
      if (Alive() && edited != area_.Text()) Act([this, &edited, caret] { area_.Edit(edited, caret); });
    });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { TakeCaret(); });
    connect(this, &QPlainTextEdit::selectionChanged, this, [this] { TakeCaret(); });
  }

  QSize sizeHint() const override { return SizeOf(kUsualTextLines); }
  QSize minimumSizeHint() const override { return SizeOf(kLeastTextLines); }

 protected:
  void ShowValue() override {
    const QString shown = ToQt(area_.Text());
    if (shown == toPlainText()) return;
    const auto caret = static_cast<int>(area_.CaretPosition());
    setPlainText(shown);
    QTextCursor cursor = textCursor();
    cursor.setPosition(caret);
    setTextCursor(cursor);
  }

  void insertFromMimeData(const QMimeData* source) override {
    if (!source->hasText() || !Alive()) return;
    QString pasted;
    if (Act([this, source, &pasted] { pasted = ToQt(area_.Pasted(FromQt(source->text()))); })) {
      insertPlainText(pasted);
    }
  }

 private:
  /// Tells the area where the user put the caret.
  void TakeCaret() {
    if (!Alive() || toPlainText() != ToQt(area_.Text())) return;  // the text is on its way
    const QTextCursor cursor = textCursor();
    area_.Select(static_cast<std::size_t>(cursor.anchor()), static_cast<std::size_t>(cursor.position()));
  }

  QSize SizeOf(int lines) const {
    const int margin = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {fontMetrics().averageCharWidth() * kLeastTextCharacters + margin,
            fontMetrics().lineSpacing() * lines + margin};
  }

  ui::TextArea& area_;
  ScopedConnection changed_;
};

}  // namespace

ControlView* MakeView(ui::TextArea& control, QWidget* parent) {
  return new TextAreaView(control, parent);
}

}  // namespace kiv::qt
