#include "qt/typed_text.h"

#include <algorithm>

namespace kiv::qt {

namespace {

#ifdef Q_OS_MACOS
constexpr bool kAltTypesCharacters = true;  // the Option key
#else
constexpr bool kAltTypesCharacters = false;
#endif

}  // namespace

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

QString PassedByFilter(const ui::EditableText& box, const QString& typed) {
  QString passed;
  for (qsizetype i = 0; i < typed.size(); ++i) {
    const bool pair = typed[i].isHighSurrogate() && i + 1 < typed.size();
    const QString character = typed.mid(i, pair ? 2 : 1);
    if (pair) ++i;
    if (std::all_of(character.begin(), character.end(),
                    [&box](QChar key) { return box.PassesFilter(key.unicode()); })) {
      passed += character;
    }
  }
  return passed;
}

}  // namespace kiv::qt
