#include "qt/text.h"

namespace kiv::qt {

QString PlainCaption(const std::string& caption) {
  const QString marked = ToQt(caption);
  QString plain;
  plain.reserve(marked.size());
  for (qsizetype i = 0; i < marked.size(); ++i) {
    if (marked[i] == u'&' && i + 1 < marked.size()) ++i;
    plain += marked[i];
  }
  return plain;
}

QString SpokenLabel(const std::string& caption) {
  QString label = PlainCaption(caption).trimmed();
  if (label.endsWith(u':')) label.chop(1);
  return label;
}

}  // namespace kiv::qt
