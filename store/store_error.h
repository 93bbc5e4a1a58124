#pragma once

#include <exception>
#include <string>

#include "base/error.h"

namespace kiv::store {

/// A request that the store refuses; the text is one message for the user.
class StoreError : public Error {
 public:
  explicit StoreError(const std::string& text) : Error(ErrorNumber::InvalidArgument, text) {}
};

/// Somebody else saved the study since it was loaded, or deleted it.
class StudyConflict : public StoreError {
 public:
  enum class Reason { Changed, Deleted };

  StudyConflict(Reason reason, const std::string& text) : StoreError(text), reason_(reason) {}

  Reason Why() const { return reason_; }

 private:
  Reason reason_;
};

/// Somebody else deleted the scenario that a study is to belong to.
class ScenarioDeleted : public StoreError {
 public:
  ScenarioDeleted()
      : StoreError(
            "The scenario was deleted while you were editing the study. Choose another one, then save "
            "again.") {}
};

/// A study of a kind that this program cannot edit.
class UnknownKind : public StoreError {
 public:
  explicit UnknownKind(const std::string& kind)
      : StoreError("This version of the program cannot edit studies of the kind \"" + kind + "\".") {}
};

/// One sentence or two for the user: what went wrong and what to do about it.
std::string FailureText(const std::exception& failure);

}  // namespace kiv::store
