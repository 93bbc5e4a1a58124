#include "database/row_buffer.h"

#include <algorithm>

#include "base/ascii.h"

namespace kiv::database {

void RowBuffer::AppendText(std::string_view text) {
  char* const place = NewText(text.size());
  std::ranges::copy(text, place);
  Cell& cell = NewCell();
  cell.type = CellType::Text;
  cell.length = static_cast<std::uint32_t>(text.size());
  cell.text = place;
}

void RowBuffer::AddCellBlock() {
  const std::size_t size = cellBlocks_.empty() ? kCellsInFirstBlock : kCellsInBlock;
  cellBlocks_.push_back(std::make_unique_for_overwrite<Cell[]>(size));
}

char* RowBuffer::NewText(std::size_t length) {
  constexpr std::size_t kTextInFirstBlock = 256;
  constexpr std::size_t kTextInBlock = 65536;
  if (length > freeLength_) {
    const std::size_t size = std::max(length, textBlocks_.empty() ? kTextInFirstBlock : kTextInBlock);
    textBlocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
    freeText_ = textBlocks_.back().get();
    freeLength_ = size;
  }
  freeLength_ -= length;
  return std::exchange(freeText_, freeText_ + length);
}

int RowBuffer::FindField(std::string_view name) const {
  const auto found = std::ranges::find_if(
      *fieldNames_, [name](const std::string& fieldName) { return SameInAnyCase(fieldName, name); });
  return found == fieldNames_->end() ? -1 : static_cast<int>(found - fieldNames_->begin());
}

Variant RowBuffer::At(std::size_t row, std::size_t field) const {
  const Cell& cell = CellAt(row * FieldCount() + field);
  switch (cell.type) {
    case CellType::Integer: return cell.integer;
    case CellType::Real: return cell.real;
    case CellType::Text: return std::string_view(cell.text, cell.length);
    case CellType::Null: break;
  }
  return {};
}

void RowBuffer::ReleaseRows() {
  *this = RowBuffer(std::move(fieldNames_));
}

void BufferedRecordset::MoveNext() {
  if (!EndOfFile()) ++current_;
}

void BufferedRecordset::Close() {
  rows_.ReleaseRows();
  current_ = 0;
}

int BufferedRecordset::FieldIndex(std::string_view name) const {
  const int index = rows_.FindField(name);
  if (index < 0) {
    throw Error(ErrorNumber::InvalidArgument, "The result set has no field '" + std::string(name) + "'.");
  }
  return index;
}

Variant BufferedRecordset::FieldAt(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= rows_.FieldCount()) {
    throw Error(ErrorNumber::InvalidArgument, "The result set has no field number " + std::to_string(index) +
                                                  "; it has " + std::to_string(rows_.FieldCount()) + ".");
  }
  if (EndOfFile())
    throw Error(ErrorNumber::InvalidArgument, "The result set is at its end; there is no row.");
  return rows_.At(current_, static_cast<std::size_t>(index));
}

}  // namespace kiv::database
