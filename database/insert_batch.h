#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::database {

/// A value of a row in the text of its statement.
struct InsertValue {
  enum class Kind : std::uint8_t {
    Null,
    Integer,        ///< of no more digits than 64 bits always hold, maybe with a sign
    Number,         ///< any other
    Text,           ///< place and length without the quotes around it
    TextWithQuotes  ///< the same, with quotes in it, which are still doubled
  };
  std::uint32_t place;
  std::uint32_t length;
  Kind kind;
};

/// One statement that inserts rows, and where its values are in it.
struct RowsInsert {
  std::string statement;
  std::size_t headLength;  ///< of the text before the first row
  std::size_t rows;
  std::vector<InsertValue> values;  ///< row by row, as many in each

  std::size_t Columns() const { return values.size() / rows; }
};

/// Inserts that wait to be sent together. Those of the form `INSERT INTO Table (columns) VALUES (values)`
/// with the same text up to the values become one statement that inserts all their rows: the rows of a table
/// keep their order, and the tables follow in the order of their first rows. They wait only with plain names
/// and plain values: numbers, texts in single quotes, NULL. Whatever could mean more than its row, such as a
/// sub-query, a function or a clause behind the values, does not.
class InsertBatch {
 public:
  /// Puts a statement to those that wait. False when it has to be run by itself, or once the batch is sent.
  bool Take(std::string_view sql);

  bool Empty() const { return groups_.empty(); }
  /// The statements for all that waits; nothing waits afterwards.
  std::vector<RowsInsert> Release();

 private:
  RowsInsert* FindGroup(std::string_view sql);
  void Append(RowsInsert& group, std::string_view row);

  std::vector<RowsInsert> groups_;
  std::vector<InsertValue> row_;  ///< of the statement that is looked at
  std::size_t bytes_ = 0;         ///< of all statements
};

}  // namespace kiv::database
