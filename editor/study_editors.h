#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "editor/tab.h"

namespace kiv {

/// How studies of one kind are edited.
struct StudyEditor {
  std::string_view name;        ///< of the study kind
  std::string_view editorName;  ///< of the editor, as titles show it
  /// Makes the kind's tabs, in the order in which the editor shows them.
  std::function<std::vector<std::unique_ptr<Tab>>()> createTabs;
};

/// Makes an editor known; a second registration of a kind replaces the first.
void RegisterStudyEditor(StudyEditor editor);

/// The registered editor of a study kind; null when there is none.
const StudyEditor* FindStudyEditor(std::string_view kind);

/// The registered editors in the order of registration.
const std::vector<StudyEditor>& StudyEditors();

}  // namespace kiv
