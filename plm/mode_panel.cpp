#include "plm/mode_panel.h"

namespace kiv {

ModePanel::ModePanel(Container* parent, std::int32_t number)
    : Container(parent, "XMode" + std::to_string(number)), number_(number) {}

bool ModePanel::ValidMode(const CKivPlmMode& mode) {
  const auto problem = ModeProblem(mode);
  if (problem) Tell(*problem);
  return !problem;
}

std::optional<Problem> ModePanel::ModeProblem(const CKivPlmMode& mode) {
  return Visible() ? StoredProblem(mode) : std::nullopt;
}

void ModePanel::Reveal() {
  SetVisible(true);
  if (ui::Control* first = FirstControl()) first->SetFocus();
}

PlainPanel::PlainPanel(Container* parent, std::int32_t number)
    : ModePanel(parent, number), lblNoSettings(this, "lblNoSettings") {
  lblNoSettings.SetCaption("This mode has no settings of its own.");
}

ui::LayoutItem PlainPanel::Layout() {
  return ui::Single(lblNoSettings);
}

}  // namespace kiv
