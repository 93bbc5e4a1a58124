#pragma once

#include <exception>
#include <string>

#include "base/error.h"

namespace kiv::client {

/// A request that the store refuses; the text is one message for the user.
class StoreError : public Error {
 public:
  explicit StoreError(const std::string& text) : Error(ErrorNumber::InvalidArgument, text) {}
};

/// Somebody else saved the study since it was loaded, or deleted it.
class StudyConflict : public StoreError {
 public:
  using StoreError::StoreError;
};

/// One sentence or two for the user: what went wrong and what to do about it.
std::string FailureText(const std::exception& failure);

}  // namespace kiv::client
