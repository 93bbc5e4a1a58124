#pragma once

#include "editor/document_chooser.h"
#include "editor/tab.h"
#include "ui/buttons.h"

namespace kiv::session {

/// The scenario of a study whose own tabs do not ask for it: a tab without a page, shown above the pages.
class ScenarioStrip : public Tab {
 public:
  ScenarioStrip();

  ui::LayoutItem Layout() override;

  DocumentChooser fdocCBScenario;
  ui::Button cmdNewScenario;

 private:
  void TakeSubRecord(const CKivStudyData&) override {}
  /// The host knows the scenario of a new study already.
  void ShowNewStudy() override { fdocCBScenario.SelectID(Study()->ScenarioID()); }
};

}  // namespace kiv::session
