#include "client/cli/text_table.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <ostream>

#include "client/cli/terminal_text.h"

namespace kiv::client {

namespace {

constexpr char kCellEnd = '\t';
constexpr std::size_t kGap = 2;
constexpr std::size_t kBlock = 60'000;

}  // namespace

void TextTable::AddLine(std::initializer_list<std::string_view> texts) {
  if (blocks_.empty() || blocks_.back().cells.size() > kBlock - kBlock / 8) {
    blocks_.emplace_back().cells.reserve(kBlock);
  }
  Block& block = blocks_.back();
  ++block.lines;
  std::size_t column = 0;
  for (const std::string_view text : texts) {
    const std::size_t before = block.cells.size();
    const std::size_t width = AppendTerminalText(text, block.cells);
    block.plain = block.plain && width == block.cells.size() - before;
    widths_[column] = std::max(widths_[column], width);
    ++column;
    block.cells += kCellEnd;
  }
}

void TextTable::Print(const Block& block, std::string& to) const {
  const std::size_t lineWidth = std::accumulate(widths_.begin(), widths_.end(), widths_.size() * kGap);
  to.assign(block.cells.size() + block.lines * lineWidth, ' ');
  char* end = to.data();
  std::string_view rest = block.cells;
  for (std::size_t column = 0; !rest.empty(); column = (column + 1) % widths_.size()) {
    const std::string_view cell = rest.substr(0, rest.find(kCellEnd));
    rest.remove_prefix(cell.size() + 1);
    std::memcpy(end, cell.data(), cell.size());
    end += cell.size();
    if (column + 1 == widths_.size()) {
      *end++ = '\n';
    } else {
      end += widths_[column] - (block.plain ? cell.size() : TerminalWidth(cell)) + kGap;
    }
  }
  to.resize(static_cast<std::size_t>(end - to.data()));
}

void TextTable::Print(std::ostream& out) const {
  std::string lines;
  for (const Block& block : blocks_) {
    Print(block, lines);
    out.write(lines.data(), static_cast<std::streamsize>(lines.size()));
  }
}

}  // namespace kiv::client
