#include "store/exchange/json_text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/utf16.h"
#include "store/store_error.h"

namespace kiv::store {

namespace {

constexpr std::size_t kMaxDepth = 16;
constexpr std::size_t kMaxKeys = 200;
constexpr std::size_t kMaxKeyLength = 100;
constexpr std::size_t kMaxValues = 1'000'000;

StoreError At(std::string_view text, std::size_t position, const std::string& reason) {
  const std::string_view before = text.substr(0, position);
  const auto line = std::ranges::count(before, '\n') + 1;
  const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
  const std::size_t column = ToUtf16(before.substr(lineStart)).size() + 1;
  return StoreError("line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + reason);
}

void RequireUtf8(std::string_view text) {
  const std::string proper = ToUtf8(ToUtf16(text));
  if (proper == text) return;
  const auto [wrong, instead] = std::ranges::mismatch(text, proper);
  throw At(text, static_cast<std::size_t>(wrong - text.begin()),
           "this is no UTF-8 text. Save the file in the encoding UTF-8");
}

/// Reads a text and tells how far the reading got.
class Reading {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  Reading(const char* position, const char** furthest) : position_(position), furthest_(furthest) {}
  const char& operator*() const { return *position_; }
  Reading& operator++() {
    *furthest_ = ++position_;
    return *this;
  }
  bool operator==(const Reading& other) const { return position_ == other.position_; }
  bool operator!=(const Reading& other) const { return position_ != other.position_; }

 private:
  const char* position_;
  const char** furthest_;
};

/// Follows the parser and refuses what would be lost silently or take for ever.
class Watcher {
 public:
  /// What is wrong with the event; empty when nothing is.
  std::string Follow(Json::parse_event_t event, const Json& parsed) {
    using Event = Json::parse_event_t;
    switch (event) {
      case Event::object_start:
      case Event::array_start:
        open_.emplace_back();
        return open_.size() > kMaxDepth ? "lists and objects are nested too deeply here" : "";
      case Event::object_end:
      case Event::array_end: open_.pop_back(); return {};
      case Event::key: return TakeKey(parsed.get_ref<const std::string&>());
      case Event::value: return {};
    }
    return {};
  }

 private:
  std::string TakeKey(const std::string& name) {
    std::set<std::string>& names = open_.back();
    if (names.size() == kMaxKeys) return "this object has more entries than any that is exported";
    if (name.empty()) return "an entry without a name. Give it one, or remove it";
    if (!names.insert(name).second) return "\"" + name + "\" stands twice in this object. Remove one of them";
    return {};
  }

  std::vector<std::set<std::string>> open_;  // with their keys so far
};

/// Counts what the parser meets; its calls answer whether to go on.
class Counting : public Json::json_sax_t {
 public:
  explicit Counting(std::size_t length) : length_(length) {}

  /// Empty when nothing is wrong.
  const std::string& Fault() const { return fault_; }

  bool null() override { return Value(); }
  bool boolean(bool) override { return Value(); }
  bool number_integer(Json::number_integer_t) override { return Value(); }
  bool number_unsigned(Json::number_unsigned_t) override { return Value(); }
  bool number_float(Json::number_float_t, const std::string&) override { return Value(); }
  bool string(std::string&) override { return Value(); }
  bool binary(Json::binary_t&) override { return Value(); }
  bool start_object(std::size_t) override { return Open(); }
  bool start_array(std::size_t) override { return Open(); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }
  bool key(std::string& name) override {
    const bool known = ++keys_.back() <= kMaxKeys && name.size() <= kMaxKeyLength;
    return known || Stop("an object in it has what no study has");
  }
  bool parse_error(std::size_t position, const std::string&, const Json::exception&) override {
    return Stop(position > length_ ? "its end is missing"
                                   : "it is broken at character " + std::to_string(position));
  }

 private:
  bool Stop(std::string fault) {
    fault_ = std::move(fault);
    return false;
  }
  bool Value() { return ++values_ <= kMaxValues || Stop("it has more values than any study"); }
  bool Open() {
    keys_.push_back(0);
    return keys_.size() <= kMaxDepth ? Value() : Stop("it is nested deeper than any study");
  }
  bool Close() {
    keys_.pop_back();
    return true;
  }

  std::size_t length_;
  std::size_t values_ = 0;
  std::vector<std::size_t> keys_;  // so far, of what is open
  std::string fault_;
};

/// The end of the parser's message, which says what it expected.
std::string DetailOf(const Json::exception& error) {
  std::string text = error.what();
  for (const std::string_view separator : {": ", "] "}) {
    const std::size_t found = text.find(separator);
    if (found != std::string::npos) return text.substr(found + separator.size());
  }
  return text;
}

}  // namespace

Json ParseJson(std::string_view text) {
  RequireUtf8(text);
  const char* furthest = text.data();
  const auto position = [&] {
    const auto read = static_cast<std::size_t>(furthest - text.data());
    return read == 0 ? 0 : read - 1;  // the last character that was looked at
  };
  Watcher watcher;
  try {
    return Json::parse(Reading(text.data(), &furthest), Reading(text.data() + text.size(), &furthest),
                       [&](int, Json::parse_event_t event, const Json& parsed) {
                         const std::string problem = watcher.Follow(event, parsed);
                         if (!problem.empty()) throw At(text, position(), problem);
                         return true;
                       });
  } catch (const Json::exception& error) {
    throw At(text, position(),
             "the JSON is broken here (" + DetailOf(error) + "). Correct it, or export the studies again");
  }
}

void CheckWrittenJson(std::string_view text) {
  if (!text.starts_with('{')) throw StoreError("it is no study");
  Counting counting(text.size());
  if (!Json::sax_parse(text, &counting)) throw StoreError(counting.Fault());
}

}  // namespace kiv::store
