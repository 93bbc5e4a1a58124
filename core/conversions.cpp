#include "core/conversions.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <type_traits>

#include "base/error.h"
#include "core/numeric_text.h"

namespace kiv {

namespace {

[[noreturn]] void RaiseTypeMismatch(const char* wanted) {
  throw Error(ErrorNumber::TypeMismatch, std::string("Type mismatch: the value is not ") + wanted + ".");
}

template <class Integer = std::int32_t, class Number>
Integer Narrowed(Number number) {
  constexpr auto kLow = std::numeric_limits<Integer>::min();
  constexpr auto kHigh = std::numeric_limits<Integer>::max();
  if (!(number >= static_cast<Number>(kLow) && number <= static_cast<Number>(kHigh))) {
    throw Error(ErrorNumber::Overflow,
                "Overflow: the number does not fit into " + std::to_string(8 * sizeof(Integer)) + " bits.");
  }
  return static_cast<Integer>(number);
}

std::int32_t FromText(std::string_view text) {
  const auto number = ParseNumber(text);
  if (!number) RaiseTypeMismatch("a number");
  return Narrowed(*number);
}

template <class Number>
std::string DecimalText(Number number) {
  char digits[32];
  return std::string(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
}

}  // namespace

std::int32_t ToInt32(const Variant& value) {
  return std::visit(
      [](const auto& held) -> std::int32_t {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, bool>) {
          return held ? -1 : 0;
        } else if constexpr (std::is_same_v<Held, std::int64_t>) {
          return Narrowed(held);
        } else if constexpr (std::is_same_v<Held, double>) {
          return Narrowed(std::nearbyint(held));  // the default rounding mode: half to even
        } else if constexpr (std::is_same_v<Held, std::string>) {
          return FromText(held);
        } else {
          RaiseTypeMismatch("a number");
        }
      },
      value.Value());
}

std::int32_t ToInt32Or(const Variant& value, std::int32_t whenNull) {
  return value.IsNull() ? whenNull : ToInt32(value);
}

std::int16_t ToInt16(const Variant& value) {
  return Narrowed<std::int16_t>(ToInt32(value));
}

std::string ToText(const Variant& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>) {
          return {};
        } else if constexpr (std::is_same_v<Held, bool>) {
          return held ? "True" : "False";
        } else if constexpr (std::is_arithmetic_v<Held>) {
          return DecimalText(held);
        } else if constexpr (std::is_same_v<Held, std::string>) {
          return held;
        } else {
          RaiseTypeMismatch("a text");
        }
      },
      value.Value());
}

}  // namespace kiv
