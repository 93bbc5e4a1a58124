#include "session/scenario_strip.h"

namespace kiv::session {

ScenarioStrip::ScenarioStrip()
    : Tab("ScenarioStrip", "Scenario"),
      fdocCBScenario(this, "fdocCBScenario"),
      cmdNewScenario(this, "cmdNewScenario") {
  fdocCBScenario.OfferNew(cmdNewScenario);
  checks_.Append(fdocCBScenario.Checks());
  ReportChangesOf(fdocCBScenario.Changed);
}

void ScenarioStrip::ShowStoredStudy() {
  fdocCBScenario.SetDocumentType(Study()->ScenarioType());
  fdocCBScenario.SelectID(Study()->ScenarioID());
}

void ScenarioStrip::SaveData() {
  Study()->SetScenarioID(fdocCBScenario.SelectedID());
}

ui::LayoutItem ScenarioStrip::Layout() {
  using namespace ui;
  return Form({Field("S&cenario:", {Single(fdocCBScenario), Single(cmdNewScenario)})});
}

}  // namespace kiv::session
