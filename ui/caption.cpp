#include "ui/caption.h"

#include "ui/caret_text.h"

namespace kiv::ui {

namespace {

constexpr char kMark = '&';

}  // namespace

std::string PlainCaption(std::string_view caption) {
  std::string plain;
  plain.reserve(caption.size());
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == kMark && i + 1 < caption.size()) ++i;
    plain += caption[i];
  }
  return plain;
}

std::string SpokenLabel(std::string_view caption) {
  const std::string plain = PlainCaption(caption);
  std::string_view label = Trimmed(plain);
  if (label.ends_with(':')) label.remove_suffix(1);
  return std::string(label);
}

char MnemonicOf(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != kMark) continue;
    const char letter = caption[++i];
    if (letter == kMark) continue;
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  }
  return 0;
}

}  // namespace kiv::ui
