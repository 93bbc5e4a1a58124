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
constexpr std::size_t kMostWaiting = 500'000;  // bytes
constexpr std::size_t kWidest = 80;            // one long text does not fill every line with blanks

}  // namespace

void TextTable::AddLine(std::initializer_list<std::string_view> texts) {
  ++lines_;
  std::size_t column = 0;
  for (const std::string_view text : texts) {
    const std::size_t before = cells_.size();
    const std::size_t width = AppendTerminalText(text, cells_);
    plain_ = plain_ && width == cells_.size() - before;
    widths_[column] = std::max(widths_[column], std::min(width, kWidest));
    ++column;
    cells_ += kCellEnd;
  }
  if (cells_.size() > kMostWaiting) Print();
}

void TextTable::Print() {
  const std::size_t lineWidth = std::accumulate(widths_.begin(), widths_.end(), widths_.size() * kGap);
  text_.assign(cells_.size() + lines_ * lineWidth, ' ');
  char* end = text_.data();
  std::string_view rest = cells_;
  for (std::size_t column = 0; !rest.empty(); column = (column + 1) % widths_.size()) {
    const std::string_view cell = rest.substr(0, rest.find(kCellEnd));
    rest.remove_prefix(cell.size() + 1);
    std::memcpy(end, cell.data(), cell.size());
    end += cell.size();
    if (column + 1 == widths_.size()) {
      *end++ = '\n';
    } else {
      const std::size_t width = plain_ ? cell.size() : TerminalWidth(cell);
      end += widths_[column] - std::min(width, widths_[column]) + kGap;
    }
  }
  out_.write(text_.data(), end - text_.data());
  cells_.clear();
  lines_ = 0;
  plain_ = true;
}

}  // namespace kiv::client
