#include <QLineEdit>
#include <algorithm>

#include "qt/control_views.h"
#include "qt/text.h"
#include "qt/typed_text.h"

namespace kiv::qt {

namespace {

/// What QLineEdit makes room for, and what a number needs.
constexpr int kUsualCharacters = 17;
constexpr int kShortCharacters = 7;

/// A pasted line often comes with its line end, and a box holds one line.
QString OneLine(QString text) {
  while (text.endsWith(u'\n') || text.endsWith(u'\r')) text.chop(1);
  text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  return text.replace(u'\n', u' ').replace(u'\r', u' ');
}

class TextBoxView final : public TypedTextView<QLineEdit> {
 public:
  TextBoxView(ui::TextBox& box, QWidget* parent, BoxWidth width)
      : TypedTextView(box, parent), box_(box), width_(width), changed_(ShowValueOn(box.Changed)) {
    if (width == BoxWidth::Short) setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    ShowAppearance();
    ShowValue();
    connect(this, &QLineEdit::textEdited, this,
            [this](const QString& edited) { Act([this, &edited] { box_.Edit(FromQt(OneLine(edited))); }); });
  }

  QSize sizeHint() const override {
    const QSize usual = QLineEdit::sizeHint();
    if (width_ == BoxWidth::Full) return usual;
    const int character = fontMetrics().horizontalAdvance(u'x');
    return {usual.width() - character * (kUsualCharacters - kShortCharacters), usual.height()};
  }

 protected:
  void ShowValue() override {
    const QString shown = ToQt(box_.Text());
    if (shown == text()) return;
    const int cursor = cursorPosition();
    setText(shown);
    setCursorPosition(std::min(cursor, static_cast<int>(shown.size())));
  }

 private:
  ui::TextBox& box_;
  const BoxWidth width_;
  ScopedConnection changed_;
};

}  // namespace

ControlView* MakeView(ui::TextBox& control, QWidget* parent, BoxWidth width) {
  return new TextBoxView(control, parent, width);
}

}  // namespace kiv::qt
