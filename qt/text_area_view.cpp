#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <algorithm>

#include "qt/control_views.h"
#include "qt/text.h"
#include "qt/typed_text.h"

namespace kiv::qt {

namespace {

/// Room for short lines; more of it when the page has more.
constexpr int kLeastCharacters = 16;
constexpr int kLeastLines = 4;
constexpr int kUsualLines = 8;

class TextAreaView final : public TypedTextView<QPlainTextEdit> {
 public:
  TextAreaView(ui::TextArea& area, QWidget* parent)
      : TypedTextView(area, parent), area_(area), changed_(ShowValueOn(area.Changed)) {
    setTabChangesFocus(true);
    ShowAppearance();
    ShowValue();
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
      const std::string edited = FromQt(toPlainText());
      if (Alive() && edited != area_.Text()) Act([this, &edited] { area_.Edit(edited); });
    });
  }

  QSize sizeHint() const override { return SizeOf(kUsualLines); }
  QSize minimumSizeHint() const override { return SizeOf(kLeastLines); }

 protected:
  void ShowValue() override {
    const QString shown = ToQt(area_.Text());
    if (shown == toPlainText()) return;
    const int place = textCursor().position();
    setPlainText(shown);
    QTextCursor cursor = textCursor();
    cursor.setPosition(std::min(place, static_cast<int>(shown.size())));
    setTextCursor(cursor);
  }

  void insertFromMimeData(const QMimeData* source) override {
    if (!source->hasText() || !Alive()) return;
    QString pasted;
    Act([this, source, &pasted] { pasted = ToQt(area_.Pasted(FromQt(source->text()))); });
    insertPlainText(pasted);
  }

 private:
  QSize SizeOf(int lines) const {
    const int margin = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {fontMetrics().averageCharWidth() * kLeastCharacters + margin,
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
