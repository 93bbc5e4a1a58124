#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::store {

/// Reads CSV text record by record: commas, quotation marks as in RFC 4180, lines that end with LF or CRLF, a
/// byte order mark in front. Empty lines are skipped. A record with a fault in its quotation marks ends with
/// its first line, so that one fault does not hide what follows.
class CsvReader {
 public:
  /// The text must outlive the reader.
  explicit CsvReader(std::string_view text);

  /// Goes to the next record; false at the end.
  bool Next();

  /// The line on which the record begins, counted from 1.
  std::int32_t Line() const { return line_; }
  /// What is wrong with the quotation marks; empty when nothing is.
  std::string_view Fault() const { return fault_; }
  /// The values, valid until the next record; none when there is a fault.
  const std::vector<std::string_view>& Fields() const { return fields_; }
  /// How many bytes have been read.
  std::size_t Position() const { return position_; }

 private:
  bool AtLineEnd() const;
  void PassLineEnd();
  void ReadRecord();
  void ReadPlainField();
  void ReadQuotedField();
  void ResumeAfter(std::size_t start, std::string_view fault);

  std::string_view text_;
  std::size_t position_ = 0;
  std::int32_t line_ = 0;
  std::int32_t nextLine_ = 1;
  std::string_view fault_;
  std::vector<std::string_view> fields_;
  std::deque<std::string> unquoted_;  ///< values that differ from what stands in the text
};

}  // namespace kiv::store
