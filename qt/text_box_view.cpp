#include <QLineEdit>

#include "qt/control_views.h"
#include "qt/text.h"
#include "qt/typed_text.h"

namespace kiv::qt {

namespace {

/// What QLineEdit makes room for, and what a number needs.
constexpr int kUsualCharacters = 17;
constexpr int kShortCharacters = 7;

class TextBoxView final : public TypedTextView<QLineEdit> {
 public:
  TextBoxView(ui::TextBox& box, QWidget* parent, ui::BoxWidth width)
      : TypedTextView(box, parent), box_(box), width_(width), changed_(ShowValueOn(box.Changed)) {
    if (width == ui::BoxWidth::Short) setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    ShowAppearance();
    ShowValue();
    connect(this, &QLineEdit::textEdited, this, [this](const QString& edited) {
      const auto caret = static_cast<std::size_t>(cursorPosition());
      Act([this, &edited, caret] { box_.Edit(FromQt(edited), caret); });
    });
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] { TakeCaret(); });
    connect(this, &QLineEdit::selectionChanged, this, [this] { TakeCaret(); });
  }

  QSize sizeHint() const override {
    const QSize usual = QLineEdit::sizeHint();
    if (width_ == ui::BoxWidth::Full) return usual;
    const int character = fontMetrics().horizontalAdvance(u'x');
    return {usual.width() - character * (kUsualCharacters - kShortCharacters), usual.height()};
  }

 protected:
  void ShowValue() override {
    const QString shown = ToQt(box_.Text());
    if (shown == text()) return;
    const auto caret = static_cast<int>(box_.CaretPosition());
    setText(shown);
    setCursorPosition(caret);
  }

 private:
  /// Tells the box where the user put the caret.
  void TakeCaret() {
    if (!Alive() || text() != ToQt(box_.Text())) return;  // the text is on its way
    const int caret = cursorPosition();
    const int anchor = !hasSelectedText()          ? caret
                       : caret == selectionStart() ? selectionEnd()
                                                   : selectionStart();
    box_.Select(static_cast<std::size_t>(anchor), static_cast<std::size_t>(caret));
  }

  ui::TextBox& box_;
  const ui::BoxWidth width_;
  ScopedConnection changed_;
};

}  // namespace

ControlView* MakeView(ui::TextBox& control, QWidget* parent, ui::BoxWidth width) {
  return new TextBoxView(control, parent, width);
}

}  // namespace kiv::qt
