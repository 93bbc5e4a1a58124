#include "core/study_kinds.h"

#include <algorithm>
#include <utility>

namespace kiv {

namespace {

std::deque<StudyKind>& Kinds() {
  static std::deque<StudyKind> kinds;
  return kinds;
}

auto Position(std::string_view name) {
  return std::ranges::find(Kinds(), name, &StudyKind::name);
}

}  // namespace

void RegisterStudyKind(StudyKind kind) {
  const auto known = Position(kind.name);
  if (known == Kinds().end()) {
    Kinds().push_back(std::move(kind));
  } else {
    *known = std::move(kind);
  }
}

const StudyKind* FindStudyKind(std::string_view name) {
  const auto found = Position(name);
  return found == Kinds().end() ? nullptr : &*found;
}

const std::deque<StudyKind>& StudyKinds() {
  return Kinds();
}

}  // namespace kiv
