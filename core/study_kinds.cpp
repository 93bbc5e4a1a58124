#include "core/study_kinds.h"

#include <utility>

#include "core/named_registry.h"

namespace kiv {

namespace {

NamedRegistry<StudyKind>& Kinds() {
  static NamedRegistry<StudyKind> kinds;
  return kinds;
}

}  // namespace

void RegisterStudyKind(StudyKind kind) {
  Kinds().Register(std::move(kind));
}

const StudyKind* FindStudyKind(std::string_view name) {
  return Kinds().Find(name);
}

}  // namespace kiv
