#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

#include "qt/control_views.h"
#include "qt/text.h"

namespace kiv::qt {

namespace {

/// What QLineEdit makes room for, and what a number needs.
constexpr int kUsualCharacters = 17;
constexpr int kShortCharacters = 7;

#ifdef Q_OS_MACOS
constexpr bool kAltTypesCharacters = true;  // the Option key
#else
constexpr bool kAltTypesCharacters = false;
#endif

enum class KeyUse { Character, AltCombination, Other };

KeyUse UseOf(const QKeyEvent& event) {
  if (event.text().isEmpty()) return KeyUse::Other;
  const QChar first = event.text().at(0);
  if (!first.isPrint() && !first.isSurrogate() && first.category() != QChar::Other_PrivateUse &&
      first.category() != QChar::Other_Format) {
    return KeyUse::Other;
  }
  const bool control = event.modifiers().testFlag(Qt::ControlModifier);
  const bool alt = event.modifiers().testFlag(Qt::AltModifier);
  if (control != alt) {
    if (control) return KeyUse::Other;
    return kAltTypesCharacters ? KeyUse::Character : KeyUse::AltCombination;
  }
  return KeyUse::Character;  // both together are the AltGr key of some platforms
}

/// A pasted line often comes with its line end, and a box holds one line.
QString OneLine(QString text) {
  while (text.endsWith(u'\n') || text.endsWith(u'\r')) text.chop(1);
  text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  return text.replace(u'\n', u' ').replace(u'\r', u' ');
}

class TextBoxView final : public QLineEdit, public ControlView {
 public:
  TextBoxView(ui::TextBox& box, QWidget* parent, BoxWidth width)
      : QLineEdit(parent),
        ControlView(box, *this),
        box_(box),
        width_(width),
        changed_(ShowValueOn(box.Changed)) {
    if (width == BoxWidth::Short) setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    ShowAppearance();
    ShowValue();
    connect(this, &QLineEdit::textEdited, this,
            [this](const QString& edited) { Act([this, &edited] { box_.Edit(FromQt(OneLine(edited))); }); });
  }

  bool HoldsValue() const override { return true; }

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

  void keyPressEvent(QKeyEvent* event) override {
    switch (UseOf(*event)) {
      case KeyUse::Other: QLineEdit::keyPressEvent(event); return;
      case KeyUse::AltCombination: event->ignore(); return;
      case KeyUse::Character: break;
    }
    const QString passed = Filtered(event->text());
    if (passed == event->text()) {
      QLineEdit::keyPressEvent(event);
    } else if (!passed.isEmpty()) {
      QKeyEvent filtered(event->type(), event->key(), event->modifiers(), passed);
      QLineEdit::keyPressEvent(&filtered);
    }
  }

  void inputMethodEvent(QInputMethodEvent* event) override {
    const QString passed = Filtered(event->commitString());
    if (passed == event->commitString()) {
      QLineEdit::inputMethodEvent(event);
      return;
    }
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    // Text that was to be replaced stays when nothing takes its place.
    if (!passed.isEmpty()) {
      filtered.setCommitString(passed, event->replacementStart(), event->replacementLength());
    }
    QLineEdit::inputMethodEvent(&filtered);
  }

 private:
  /// What the key filter lets through; both halves of a surrogate pair, or none.
  QString Filtered(const QString& typed) {
    QString passed;
    Act([this, &typed, &passed] {
      for (qsizetype i = 0; i < typed.size(); ++i) {
        const bool pair = typed[i].isHighSurrogate() && i + 1 < typed.size();
        const QString character = typed.mid(i, pair ? 2 : 1);
        if (pair) ++i;
        if (std::all_of(character.begin(), character.end(),
                        [this](QChar key) { return box_.PassesFilter(key.unicode()); })) {
          passed += character;
        }
      }
    });
    return passed;
  }

  ui::TextBox& box_;
  const BoxWidth width_;
  ScopedConnection changed_;
};

}  // namespace

ControlView* MakeView(ui::TextBox& control, QWidget* parent, BoxWidth width) {
  return new TextBoxView(control, parent, width);
}

}  // namespace kiv::qt
