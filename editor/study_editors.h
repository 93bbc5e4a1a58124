#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "editor/tab.h"

namespace kiv {

/// Where the user chooses the scenario of a study.
enum class ScenarioChoice {
  OnTab,  ///< one of the kind's tabs asks for it
  ByHost  ///< the tabs do not, so the host has to
};

/// How studies of one kind are edited.
struct StudyEditor {
  std::string_view name;        ///< of the study kind
  std::string_view editorName;  ///< of the editor, as titles show it
  /// Makes the kind's tabs, in the order in which the editor shows them.
  std::function<std::vector<std::unique_ptr<Tab>>()> createTabs;
  ScenarioChoice scenarioChoice = ScenarioChoice::OnTab;
};

/// Makes an editor known; a second registration of a kind replaces the first.
void RegisterStudyEditor(StudyEditor editor);

/// The registered editor of a study kind; null when there is none.
const StudyEditor* FindStudyEditor(std::string_view kind);

/// The registered editors in the order of registration.
const std::vector<StudyEditor>& StudyEditors();

}  // namespace kiv
