#include "plm/mode_panel.h"

#include <utility>

namespace kiv {

ModePanel::ModePanel(Container* parent, std::int32_t number)
    : Container(parent, "XMode" + std::to_string(number)), number_(number) {}

bool ModePanel::ValidMode(const CKivPlmMode& mode) {
  const auto problem = Visible() ? StoredProblem(mode) : std::nullopt;
  if (problem) Tell(*problem);
  return !problem;
}

void ModePanel::AddSetting(ModeSetting setting) {
  setting.changed->Connect([this] { Changed.Raise(); });
  settings_.push_back(std::move(setting));
}

void ModePanel::Reveal() {
  if (Visible()) return;
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
