#pragma once

#include <QString>
#include <string>

namespace kiv::qt {

inline QString ToQt(const std::string& text) {
  return QString::fromStdString(text);
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

/// A caption as it reads: without its mnemonic mark; `&&` is one `&`.
QString PlainCaption(const std::string& caption);

/// A label as a screen reader says it: a plain caption without the colon at its end.
QString SpokenLabel(const std::string& caption);

}  // namespace kiv::qt
