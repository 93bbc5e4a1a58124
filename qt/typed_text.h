#pragma once

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QString>

#include "qt/control_view.h"
#include "ui/text_box.h"

namespace kiv::qt {

/// What pressing a key does in a box for text.
enum class KeyUse { Character, AltCombination, Other };
KeyUse UseOf(const QKeyEvent& event);

/// What the key filter of a box lets through.
QString PassedByFilter(const ui::EditableText& box, const QString& typed);

/// A box for text whose typed characters go through the key filter of its control. `Base` is the toolkit's
/// box, which does the editing.
template <class Base>
class TypedTextView : public Base, public ControlView {
 public:
  TypedTextView(ui::EditableText& box, QWidget* parent) : Base(parent), ControlView(box, *this), box_(box) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (UseOf(*event)) {
      case KeyUse::Other: Base::keyPressEvent(event); return;
      case KeyUse::AltCombination: event->ignore(); return;
      case KeyUse::Character: break;
    }
    QString passed;
    if (!Filter(event->text(), passed)) return;
    if (passed == event->text()) {
      Base::keyPressEvent(event);
    } else if (!passed.isEmpty()) {
      QKeyEvent filtered(event->type(), event->key(), event->modifiers(), passed);
      Base::keyPressEvent(&filtered);
    }
  }

  void inputMethodEvent(QInputMethodEvent* event) override {
    QString passed;
    if (!Filter(event->commitString(), passed)) return;
    if (passed == event->commitString()) {
      Base::inputMethodEvent(event);
      return;
    }
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    // Text that was to be replaced stays when nothing takes its place.
    if (!passed.isEmpty()) {
      filtered.setCommitString(passed, event->replacementStart(), event->replacementLength());
    }
    Base::inputMethodEvent(&filtered);
  }

 private:
  /// False when the filter closed the page.
  bool Filter(const QString& typed, QString& passed) {
    return Act([this, &typed, &passed] { passed = PassedByFilter(box_, typed); });
  }

  ui::EditableText& box_;
};

}  // namespace kiv::qt
