#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/variant.h"
#include "store/network/network_index.h"
#include "store/network/network_tables.h"

namespace kiv::store {

/// What is wrong with a line of a file, or with the file as a whole.
struct BadLine {
  std::string file;
  std::int32_t line = 0;  ///< 0: the file as a whole
  std::string reason;     ///< several are joined with `; `

  friend bool operator==(const BadLine&, const BadLine&) = default;
};

/// Checks the files of a configuration, table by table in the order of NetworkTables().
class NetworkCheck {
 public:
  /// Receives each line that can be read as a row, in column order.
  using RowSink = std::function<void(const NetworkTable& table, std::span<const Variant> row)>;
  /// Is told now and then how many bytes of a file are done; what it raises ends the check.
  using Advance = std::function<void(std::size_t position)>;

  NetworkCheck(RowSink sink, Advance advance);

  /// Returns how many lines the file has without its header.
  std::int32_t CheckFile(const NetworkTable& table, const std::string& file, std::string_view text);
  /// For what no line tells, such as a missing file.
  void AddBadFile(const std::string& file, const std::string& reason);

  const std::vector<BadLine>& BadLines() const { return badLines_; }

 private:
  class File;

  RowSink sink_;
  Advance advance_;
  EntityIndex entities_;
  bool hasEntities_ = false;  ///< without them nothing that refers to them can be checked
  std::vector<BadLine> badLines_;
};

}  // namespace kiv::store
