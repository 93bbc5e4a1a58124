#include "editor/study_editors.h"

#include <utility>

#include "core/named_registry.h"

namespace kiv {

namespace {

NamedRegistry<StudyEditor>& Editors() {
  static NamedRegistry<StudyEditor> editors;
  return editors;
}

}  // namespace

void RegisterStudyEditor(StudyEditor editor) {
  Editors().Register(std::move(editor));
}

const StudyEditor* FindStudyEditor(std::string_view kind) {
  return Editors().Find(kind);
}

const std::vector<StudyEditor>& StudyEditors() {
  return Editors().All();
}

}  // namespace kiv
