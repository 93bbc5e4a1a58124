#include "store/network/network_csv.h"

#include <algorithm>

namespace kiv::store {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

CsvReader::CsvReader(std::string_view text) : text_(text) {
  if (text_.starts_with(kByteOrderMark)) position_ = kByteOrderMark.size();
}

bool CsvReader::AtLineEnd() const {
  const std::string_view rest = text_.substr(position_);
  return rest.empty() || rest[0] == '\n' || rest.starts_with("\r\n");
}

void CsvReader::PassLineEnd() {
  if (position_ >= text_.size()) return;
  position_ += text_[position_] == '\r' ? 2 : 1;
  ++nextLine_;
}

bool CsvReader::Next() {
  while (position_ < text_.size() && AtLineEnd()) PassLineEnd();
  if (position_ >= text_.size()) return false;
  fields_.clear();
  unquoted_.clear();
  fault_ = {};
  line_ = nextLine_;
  ReadRecord();
  return true;
}

void CsvReader::ReadRecord() {
  const std::size_t start = position_;
  for (;;) {
    if (position_ < text_.size() && text_[position_] == '"') {
      ReadQuotedField();
    } else {
      ReadPlainField();
    }
    if (!fault_.empty()) return ResumeAfter(start, fault_);
    if (AtLineEnd()) return PassLineEnd();
    if (text_[position_] != ',') return ResumeAfter(start, "text follows a closing quotation mark");
    ++position_;
  }
}

void CsvReader::ReadPlainField() {
  const std::size_t start = position_;
  while (!AtLineEnd() && text_[position_] != ',') {
    if (text_[position_] == '"')
      fault_ = "a quotation mark stands inside a value that does not begin with one";
    ++position_;
  }
  fields_.push_back(text_.substr(start, position_ - start));
}

void CsvReader::ReadQuotedField() {
  const std::size_t start = ++position_;
  bool doubled = false;
  for (;; ++position_) {
    position_ = text_.find('"', position_);
    if (position_ == std::string_view::npos) {
      position_ = text_.size();
      fault_ = "a quotation mark is never closed";
      return;
    }
    if (!text_.substr(position_ + 1).starts_with('"')) break;
    doubled = true;
    ++position_;
  }
  const std::string_view raw = text_.substr(start, position_ - start);
  ++position_;
  nextLine_ += static_cast<std::int32_t>(std::count(raw.begin(), raw.end(), '\n'));
  if (!doubled) {
    fields_.push_back(raw);
    return;
  }
  std::string& value = unquoted_.emplace_back();
  for (std::size_t i = 0; i < raw.size(); ++i) {
    value += raw[i];
    if (raw[i] == '"') ++i;
  }
  fields_.emplace_back(value);
}

/// Gives a record up and goes on with the line after the one on which it begins.
void CsvReader::ResumeAfter(std::size_t start, std::string_view fault) {
  fault_ = fault;
  fields_.clear();
  const std::size_t end = text_.find('\n', start);
  position_ = end == std::string_view::npos ? text_.size() : end + 1;
  nextLine_ = line_ + 1;
}

}  // namespace kiv::store
