#include "session/scenario_strip.h"

namespace kiv::session {

ScenarioStrip::ScenarioStrip()
    : Tab("ScenarioStrip", "Scenario"),
      fdocCBScenario(this, "fdocCBScenario"),
      cmdNewScenario(this, "cmdNewScenario") {
  BindScenario(fdocCBScenario, cmdNewScenario);
}

ui::LayoutItem ScenarioStrip::Layout() {
  return ScenarioRow(fdocCBScenario, cmdNewScenario);
}

}  // namespace kiv::session
