#pragma once

#include <stdexcept>
#include <string>

namespace kiv {

/// The classic run-time error numbers that callers of the library tell apart.
enum class ErrorNumber : int {
  InvalidArgument = 5,  ///< also: no entry under this key
  Overflow = 6,
  TypeMismatch = 13,
  ObjectNotSet = 91,
  DuplicateKey = 457,
  DatabaseFailure = 3146,
};

/// Base of every exception that the library raises.
class Error : public std::runtime_error {
 public:
  Error(ErrorNumber number, const std::string& text) : std::runtime_error(text), number_(number) {}

  ErrorNumber Number() const { return number_; }

 private:
  ErrorNumber number_;
};

}  // namespace kiv
