#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/database.h"

namespace kiv::database {

/// The names of a result set's columns, which all results of one statement share.
using FieldNames = std::shared_ptr<const std::vector<std::string>>;

/// The rows of a fetched result set, packed: 16 bytes a cell, and the texts one after the other. Both stand
/// in blocks that never move, so that growing copies nothing. An adapter appends the cells row by row.
class RowBuffer {
 public:
  explicit RowBuffer(FieldNames fieldNames) : fieldNames_(std::move(fieldNames)) {}
  explicit RowBuffer(std::vector<std::string> fieldNames)
      : RowBuffer(std::make_shared<const std::vector<std::string>>(std::move(fieldNames))) {}

  void AppendNull() { NewCell().type = CellType::Null; }
  void AppendInteger(std::int64_t value) {
    Cell& cell = NewCell();
    cell.type = CellType::Integer;
    cell.integer = value;
  }
  void AppendReal(double value) {
    Cell& cell = NewCell();
    cell.type = CellType::Real;
    cell.real = value;
  }
  /// Texts are at most 4 GB long, far more than a database gives.
  void AppendText(std::string_view text);

  std::size_t RowCount() const { return FieldCount() == 0 ? 0 : cellCount_ / FieldCount(); }
  std::size_t FieldCount() const { return fieldNames_->size(); }
  /// Position of the first field of this name without regard to ASCII case; -1 when there is none.
  int FindField(std::string_view name) const;
  /// The value of a cell that exists.
  Variant At(std::size_t row, std::size_t field) const;

  /// Gives the memory back; the field names stay.
  void ReleaseRows();

 private:
  enum class CellType : std::uint32_t { Null, Integer, Real, Text };

  struct Cell {
    CellType type;
    std::uint32_t length;
    union {
      std::int64_t integer;
      double real;
      const char* text;
    };
  };
  /// Most result sets are a few rows, and then a large block would cost more than its query: 1,000 bytes are
  /// about what an allocator keeps at hand.
  static constexpr std::size_t kCellsInFirstBlock = 48;
  static constexpr std::size_t kCellsInBlock = 4096;

  /// Where a cell stands, counted as if the first block were the end of one as large as the others.
  static constexpr std::size_t PlaceOf(std::size_t cell) { return cell + kCellsInBlock - kCellsInFirstBlock; }

  Cell& NewCell() {
    if (cellCount_ == 0 || PlaceOf(cellCount_) % kCellsInBlock == 0) AddCellBlock();
    return CellAt(cellCount_++);
  }
  Cell& CellAt(std::size_t cell) const {
    if (cell < kCellsInFirstBlock) return cellBlocks_.front()[cell];
    const std::size_t place = PlaceOf(cell);
    return cellBlocks_[place / kCellsInBlock][place % kCellsInBlock];
  }
  void AddCellBlock();
  char* NewText(std::size_t length);

  FieldNames fieldNames_;
  std::vector<std::unique_ptr<Cell[]>> cellBlocks_;
  std::size_t cellCount_ = 0;
  std::vector<std::unique_ptr<char[]>> textBlocks_;
  char* freeText_ = nullptr;  ///< in the last text block
  std::size_t freeLength_ = 0;
};

/// A result set that was fetched completely, so that it knows its count and holds no lock.
class BufferedRecordset : public host::Recordset {
 public:
  explicit BufferedRecordset(RowBuffer rows) : rows_(std::move(rows)) {}

  bool EndOfFile() const override { return current_ >= rows_.RowCount(); }
  std::int32_t RecordCount() const override { return static_cast<std::int32_t>(rows_.RowCount()); }
  /// Does nothing at the end.
  void MoveNext() override;
  void Close() override;
  int FieldIndex(std::string_view name) const override;
  Variant FieldAt(int index) const override;

 private:
  RowBuffer rows_;
  std::size_t current_ = 0;
};

}  // namespace kiv::database
