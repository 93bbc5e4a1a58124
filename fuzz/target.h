#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

/// What every fuzz target is made of: one function that takes any bytes, makes of them what it is about, and
/// holds the library to what it promises. libFuzzer calls it for ever; fuzz/replay.cpp calls it for a while.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace kiv::fuzz {

/// Ends the process when a promise is broken.
inline void Require(bool kept, std::string_view promise, std::string_view detail = {}) {
  if (kept) return;
  std::cerr << "Broken: " << promise << "\n" << detail << "\n";
  std::abort();
}

/// Decisions read from bytes. At the end of the bytes everything is zero or empty.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  bool Empty() const { return rest_.empty(); }
  std::uint8_t Byte() {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
  }
  /// From 0 on; `count` is at least 1.
  std::size_t Below(std::size_t count) { return count > 256 ? Bytes(4) % count : Byte() % count; }
  bool Choice() { return Byte() % 2 != 0; }
  /// Small ones often, and the limits of its type.
  template <class Integer = std::int32_t>
  Integer Number() {
    switch (Below(6)) {
      case 0: return std::numeric_limits<Integer>::max();
      case 1: return std::numeric_limits<Integer>::min();
      case 2: return static_cast<Integer>(Bytes(sizeof(Integer)));
      default: return static_cast<Integer>(static_cast<std::int8_t>(Byte()));
    }
  }
  /// A text up to the next line end, so that texts stay readable in the corpus.
  std::string Line() {
    std::string line(rest_.substr(0, rest_.find('\n')));
    rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
    return line;
  }
  std::string Rest() { return std::string(std::exchange(rest_, {})); }

 private:
  std::uint64_t Bytes(std::size_t count) {
    std::uint64_t number = 0;
    for (; count > 0; --count) number = number << 8 | Byte();
    return number;
  }

  std::string_view rest_;
};

}  // namespace kiv::fuzz
