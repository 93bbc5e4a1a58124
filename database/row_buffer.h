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

/// The rows of a fetched result set, packed: 16 bytes a cell, and the texts one after the other. Both stand
/// in blocks that never move, so that growing copies nothing. An adapter appends the cells row by row.
class RowBuffer {
 public:
  explicit RowBuffer(std::vector<std::string> fieldNames) : fieldNames_(std::move(fieldNames)) {}

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

  std::size_t RowCount() const { return fieldNames_.empty() ? 0 : cellCount_ / fieldNames_.size(); }
  std::size_t FieldCount() const { return fieldNames_.size(); }
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
  static constexpr std::size_t kCellsInBlock = 4096;

  Cell& NewCell() {
    const std::size_t place = cellCount_ % kCellsInBlock;
    if (place == 0) cellBlocks_.push_back(std::make_unique_for_overwrite<Cell[]>(kCellsInBlock));
    ++cellCount_;
    return cellBlocks_.back()[place];
  }
  char* NewText(std::size_t length);

  std::vector<std::string> fieldNames_;
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
