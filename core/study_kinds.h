#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/sub_record.h"
#include "host/constants.h"

namespace kiv {

class Tab;

/// The study kinds of this library.
using host::category::kHomStudy;
using host::category::kPlmStudy;
using host::category::kRfcStudy;
using host::category::kVcsStudy;

/// Where the user chooses the scenario of a study.
enum class ScenarioChoice {
  OnTab,  ///< one of the kind's tabs asks for it
  ByHost  ///< the tabs do not, so the host has to
};

/// One tab of a kind's editor, under the name of its class.
struct StudyTab {
  std::string className;
  std::function<std::unique_ptr<Tab>()> create;
};

/// How lists tell a kind from others: some letters on a colour, 0xRRGGBB.
struct KindBadge {
  std::string letters;
  std::uint32_t color = 0;
};

/// Everything that is to be known of a kind of studies.
struct StudyKind {
  std::string name;        ///< exact
  std::string editorName;  ///< of the editor, as titles show it
  std::string table;       ///< has one row for each study of the kind, by the study's Id
  std::function<std::shared_ptr<ISubRecord>()> createRecord;
  std::vector<StudyTab> tabs;  ///< in the order in which the editor shows them
  ScenarioChoice scenarioChoice = ScenarioChoice::OnTab;
  KindBadge badge;
};

/// Makes a further kind known; a second entry of a name takes the place of the first. The kinds of this
/// library are known from the start to a program that links it whole.
void RegisterStudyKind(StudyKind kind);

/// The kind of exactly this name; null when there is none.
const StudyKind* FindStudyKind(std::string_view name);

/// All kinds: those of this library, then the others in the order of registration. An entry stays where it
/// is.
const std::deque<StudyKind>& StudyKinds();

}  // namespace kiv
