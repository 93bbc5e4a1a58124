#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kiv::database {

/// Consecutive inserts of one row each, joined into one statement that inserts them all. What joins are
/// statements of the form `INSERT INTO Table (columns) VALUES (values)` with the same text up to the values,
/// plain names and plain values: numbers, texts in single quotes, NULL. Whatever could mean more than its
/// row, such as a sub-query, a function or a clause behind the values, never joins.
class InsertBatch {
 public:
  /// Puts a statement to those that wait. False when it has to be run by itself, or once the batch is sent.
  bool Take(std::string_view sql);

  bool Empty() const { return rows_ == 0; }
  /// The statement for all that waits; nothing waits afterwards.
  std::string Release();
  void Discard();

 private:
  std::string sql_;
  std::size_t headLength_ = 0;  ///< of the text before the first row
  std::size_t rows_ = 0;
};

}  // namespace kiv::database
