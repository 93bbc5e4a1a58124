#include "store/history/packed_text.h"

#include <zlib.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "store/store_error.h"

namespace kiv::store {

namespace {

constexpr std::size_t kLongestPlain = 8000;
constexpr std::size_t kLengthBytes = 4;

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kPadding = '=';

constexpr std::array<std::int8_t, 256> kValues = [] {
  std::array<std::int8_t, 256> values{};
  values.fill(-1);
  for (std::size_t i = 0; i < kDigits.size(); ++i) {
    values[static_cast<unsigned char>(kDigits[i])] = static_cast<std::int8_t>(i);
  }
  return values;
}();

std::string ToBase64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (; !bytes.empty(); bytes.remove_prefix(bytes.size() < 3 ? bytes.size() : 3)) {
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      group = group << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    }
    for (std::size_t i = 0; i < 4; ++i) {
      text += i <= bytes.size() ? kDigits[group >> (18 - 6 * i) & 63] : kPadding;
    }
  }
  return text;
}

/// Up to the first character that is no digit.
std::string FromBase64(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3);
  std::uint32_t group = 0;
  int bits = 0;
  for (const char character : text) {
    const std::int8_t value = kValues[static_cast<unsigned char>(character)];
    if (value < 0) break;
    group = group << 6 | static_cast<std::uint32_t>(value);
    bits += 6;
    if (bits < 8) continue;
    bits -= 8;
    bytes += static_cast<char>(group >> bits & 0xFF);
  }
  return bytes;
}

StoreError TooLong() {
  return StoreError("it is longer than any study");
}

StoreError NotPacked() {
  return StoreError("its compression is broken");
}

const Bytef* BytesOf(std::string_view text) {
  return reinterpret_cast<const Bytef*>(text.data());
}

}  // namespace

std::string Packed(const std::string& content) {
  if (content.size() <= kLongestPlain || content.size() > UINT32_MAX) return content;
  uLongf length = compressBound(content.size());
  std::string packed(kLengthBytes + length, '\0');
  for (std::size_t i = 0; i < kLengthBytes; ++i) {
    packed[i] = static_cast<char>(content.size() >> (24 - 8 * i) & 0xFF);
  }
  auto* const stream = reinterpret_cast<Bytef*>(packed.data() + kLengthBytes);
  // Saving has to stay fast, and there is nothing left that could fail.
  compress2(stream, &length, BytesOf(content), content.size(), Z_BEST_SPEED);
  packed.resize(kLengthBytes + length);
  return ToBase64(packed);
}

std::string Unpacked(const std::string& stored) {
  // JSON begins with a brace, which base64 does not have.
  if (stored.size() > kLongestContent) throw TooLong();
  if (stored.empty() || stored.starts_with('{')) return stored;
  const std::string packed = FromBase64(stored);
  if (packed.size() <= kLengthBytes) throw NotPacked();
  std::size_t size = 0;
  for (std::size_t i = 0; i < kLengthBytes; ++i) size = size << 8 | static_cast<unsigned char>(packed[i]);
  const std::string_view stream = std::string_view(packed).substr(kLengthBytes);
  if (size > kLongestContent) throw TooLong();
  std::string content(size, '\0');
  uLongf length = size;
  const int result =
      uncompress(reinterpret_cast<Bytef*>(content.data()), &length, BytesOf(stream), stream.size());
  if (result != Z_OK || length != size) throw NotPacked();
  return content;
}

}  // namespace kiv::store
