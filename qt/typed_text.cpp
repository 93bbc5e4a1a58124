#include "qt/typed_text.h"

#include "qt/text.h"

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
  // Some platforms send the two halves of a character as keys of their own, which are no text by themselves.
  if (typed.size() == 1) return box.PassesFilter(typed.at(0).unicode()) ? typed : QString();
  return ToQt(box.Passed(FromQt(typed)));
}

}  // namespace kiv::qt
