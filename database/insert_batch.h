#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::database {

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
  std::vector<std::string> Release();

 private:
  struct Group {
    std::string statement;
    std::size_t headLength;  ///< of the text before the first row
    std::size_t rows;
  };
  Group* FindGroup(std::string_view sql);

  std::vector<Group> groups_;
  std::size_t bytes_ = 0;  ///< of all statements
};

}  // namespace kiv::database
