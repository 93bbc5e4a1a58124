#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "editor/tab.h"
#include "plm/mode_setting.h"
#include "plm/plm_data.h"
#include "ui/buttons.h"
#include "ui/label.h"
#include "ui/option_button.h"

namespace kiv {

/// What the two tabs for measurement modes have in common: which modes the study runs, and whose details are
/// shown. One mode is always the current one, whether the study runs it or not.
///
/// The record of a mode that the study runs is written when another mode is shown, when the page is checked
/// and when the study is saved. What the user sets of a mode that the study does not run waits in a draft,
/// which the mode takes along when it is checked.
class ModeTab : public TabOf<CKivPlmData> {
 public:
  /// The name of the mode whose details are shown.
  std::string CurrentMode() const { return NameOf(current_); }

  ui::Frame fraModeDetail;
  ui::Label lblHint;  ///< says that the study does not run the current mode

 protected:
  /// The rows of the list of modes, which the tab has as its own members.
  struct ModeList {
    std::int32_t firstNumber = 0;
    std::span<ui::CheckBox> boxes;
    ui::OptionSet* selector = nullptr;
    std::span<ui::Label> names;      ///< of the modes, beside the selectors
    std::span<ui::Label> summaries;  ///< a few words on each checked mode
  };

  ModeTab(std::string name, std::string title);
  void UseModes(const ModeList& modes);
  /// Things that the user can set of the current mode.
  void UseSettings(const std::vector<ModeSetting>& settings);

  std::int32_t NumberOf(std::size_t index) const;
  std::string NameOf(std::size_t index) const;
  std::size_t Current() const { return current_; }
  /// Whether the study runs the current mode.
  bool CurrentIsChecked() const { return modes_.boxes[current_].Checked(); }
  std::ptrdiff_t CheckedCount() const;

  /// Another study is shown from now on.
  virtual void ForgetDetails() {}
  virtual void ShowDetails(const CKivPlmMode& mode) = 0;
  virtual void StoreDetails(CKivPlmMode& mode) const = 0;
  /// The settings of a mode that is checked for the first time.
  virtual void StartMode(CKivPlmMode&, std::size_t /*index*/) const {}
  /// Whether one more mode may be checked, the box being checked already; says why not.
  virtual bool MayCheckMore() { return true; }
  /// The rules that the shown details must meet before another mode is checked.
  virtual const CheckList& RulesBeforeChecking() const { return checks_; }
  /// What keeps the study from being saved with this record of a mode.
  virtual std::string RecordProblem(const CKivPlmMode& mode) const = 0;
  /// What cannot be right in this record of a mode although it can be saved.
  virtual std::string RecordFinding(const CKivPlmMode& /*mode*/) const { return {}; }
  virtual std::string Summary(const CKivPlmMode& mode, std::size_t index) const = 0;

  void AddFindings(std::vector<Problem>& findings) override;
  /// The option button of a mode.
  ui::Control& Selector(std::size_t index) const { return modes_.selector->Options()[index]; }

  ui::LayoutItem ListLayout();

 private:
  /// What the user set of a mode since its record was written, or before it has one.
  struct Draft {
    std::set<std::size_t> touched;  // settings, by their numbers
    CKivPlmMode values;             // of the touched settings, once another mode is shown
  };

  /// Checks the shown details and takes them into the study, then checks the other modes' records.
  bool Validate() override;
  void AddProblems(std::vector<Problem>& problems) const override;
  bool Represents(std::string_view field) const override;
  std::optional<Problem> FindingOf(const RecordFault& fault) const override;
  void SaveRest() override { StoreCurrent(); }
  void ShowNewStudy() override { ShowModes(); }
  void ShowStoredStudy() override;
  void ShowModes();

  void ChooseMode();
  void ClickBox(std::size_t index);
  void CheckMode(std::size_t index);
  void UncheckMode(std::size_t index);
  bool Meets(const CheckList& rules);
  void MakeCurrent(std::size_t index);
  void Touch(std::size_t setting);
  void CopyTouched(const Draft& draft, const CKivPlmMode& from, CKivPlmMode& to) const;
  void StoreCurrent();
  void KeepDraft();
  void ShowState(std::size_t index);
  bool Owns(const CKivPlmMode& mode) const;
  std::vector<Problem> RecordProblems() const;
  std::size_t IndexOf(const CKivPlmMode& mode) const;
  bool ShowsNewer(const CKivPlmMode& mode) const;

  ModeList modes_;
  std::size_t current_ = 0;
  std::vector<ModeSetting> settings_;
  std::vector<Draft> drafts_;  // of each mode
};

}  // namespace kiv
