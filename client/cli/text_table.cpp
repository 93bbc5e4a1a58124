#include "client/cli/text_table.h"

#include <algorithm>
#include <ostream>

#include "client/cli/terminal_text.h"

namespace kiv::client {

void PrintTable(std::vector<std::vector<std::string>> lines, std::ostream& out) {
  std::vector<std::size_t> widths(lines.empty() ? 0 : lines.front().size());
  for (auto& line : lines) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      line[i] = TerminalText(line[i]);
      widths[i] = std::max(widths[i], TerminalWidth(line[i]));
    }
  }
  std::string text;
  for (const auto& line : lines) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      text += line[i];
      const bool last = i + 1 == widths.size();
      if (!last) text.append(widths[i] - TerminalWidth(line[i]) + 2, ' ');
    }
    text += '\n';
  }
  out << text;
}

}  // namespace kiv::client
