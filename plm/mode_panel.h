#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "editor/check_list.h"
#include "plm/mode_setting.h"
#include "ui/label.h"
#include "ui/layout.h"

namespace kiv {

/// The settings of one TDMA/AMPS mode: what the panels `XMode1` to `XMode6` have in common.
class ModePanel : public ui::Container {
 public:
  std::int32_t Number() const { return number_; }

  /// Fills the lists and shows the panel's defaults.
  virtual void InitControls() {}
  /// Shows a mode. Numbers that are not set show as empty text.
  virtual void DataToCtls(const CKivPlmMode& mode) = 0;
  /// Shows the panel's mode anew. What was entered and is more than a record takes stays.
  virtual void ShowAgain(const CKivPlmMode& mode) { DataToCtls(mode); }
  /// Drops what was entered and is more than a record takes.
  virtual void Forget() {}
  /// Writes the controls into a mode.
  virtual void CtlsToData(CKivPlmMode& mode) const = 0;
  /// Writes the panel's defaults into a mode.
  virtual void DefaultsToData(CKivPlmMode& mode) const { mode.SetPlmMode(number_); }
  /// Checks the controls and tells the first problem.
  bool ValidateControls() const { return checks_.Enforce(); }
  /// Checks a stored mode by the same rules and tells the first problem. True while the panel is hidden.
  bool ValidMode(const CKivPlmMode& mode);
  /// The first problem of a stored mode, whether the panel is visible or not.
  virtual std::optional<Problem> StoredProblem(const CKivPlmMode&) { return std::nullopt; }
  const CheckList& Checks() const { return checks_; }
  /// What the user can set with the panel.
  const std::vector<ModeSetting>& Settings() const { return settings_; }

  /// Makes the panel visible; the focus moves to its first control when it was hidden.
  void Reveal();
  void Hide() { SetVisible(false); }

  /// A few words on a mode for a list of modes.
  virtual std::string Summary(const CKivPlmMode& mode) const = 0;
  virtual ui::LayoutItem Layout() = 0;
  void Accept(ui::ControlVisitor&) override {}  // shown by its layout

  /// Raised when a control changed.
  Signal<> Changed;

 protected:
  ModePanel(Container* parent, std::int32_t number);

  /// The control that the user starts with; null when there is none.
  virtual ui::Control* FirstControl() { return nullptr; }

  /// The panel's change event is raised with that of each setting.
  void AddSetting(ModeSetting setting);

  CheckList checks_;

 private:
  std::int32_t number_;
  std::vector<ModeSetting> settings_;
};

/// Panel of a mode without settings.
class PlainPanel : public ModePanel {
 public:
  PlainPanel(Container* parent, std::int32_t number);

  void DataToCtls(const CKivPlmMode&) override {}
  void CtlsToData(CKivPlmMode& mode) const override { mode.SetPlmMode(Number()); }
  std::string Summary(const CKivPlmMode&) const override { return {}; }
  ui::LayoutItem Layout() override;

  ui::Label lblNoSettings;
};

}  // namespace kiv
