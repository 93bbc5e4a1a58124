#include "store/lower_case.h"

#include <QString>
#include <algorithm>

namespace kiv::store {

std::string LowerCase(std::string_view text) {
  const bool ascii = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (!ascii) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toLower().toStdString();
  }
  std::string lowered(text);
  for (char& c : lowered) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return lowered;
}

}  // namespace kiv::store
