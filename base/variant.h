#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace kiv {

/// Base of the objects that a Variant can carry, such as a study record.
class Object {
 public:
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;
  virtual ~Object() = default;
};

/// A value whose type is known only at run time: a database field, a host's argument.
/// A default constructed one is NULL. core/conversions.h turns it into numbers and texts.
class Variant {
 public:
  using Storage =
      std::variant<std::monostate, bool, std::int64_t, double, std::string, std::shared_ptr<Object>>;

  Variant() = default;
  Variant(std::same_as<bool> auto value) : value_(value) {}
  template <std::integral Number>
  requires(!std::same_as<Number, bool>) Variant(Number value) : value_(static_cast<std::int64_t>(value)) {}
  Variant(double value) : value_(value) {}
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}
  template <std::derived_from<Object> Kind>
  Variant(std::shared_ptr<Kind> object) : value_(std::shared_ptr<Object>(std::move(object))) {}

  bool IsNull() const { return std::holds_alternative<std::monostate>(value_); }
  const Storage& Value() const { return value_; }

  friend bool operator==(const Variant&, const Variant&) = default;

 private:
  Storage value_;
};

}  // namespace kiv
