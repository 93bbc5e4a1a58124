#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "editor/tab.h"
#include "plm/plm_data.h"
#include "ui/buttons.h"
#include "ui/label.h"
#include "ui/option_button.h"

namespace kiv {

/// What the two tabs for measurement modes have in common: which modes the study runs, and whose details are
/// shown. One mode is always the current one, whether the study runs it or not.
class ModeTab : public TabOf<CKivPlmData> {
 public:
  /// Checks the shown details and takes them into the study, then checks the other modes' records.
  bool IsTabValid(const std::string& hostText) override;
  std::vector<Problem> Problems() const override;
  void SaveData() override;

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
    std::span<ui::Label> labels;  ///< a few words on each checked mode
  };

  ModeTab(std::string name, std::string title);
  void UseModes(const ModeList& modes);

  std::int32_t NumberOf(std::size_t index) const;
  std::string NameOf(std::size_t index) const;
  std::size_t Current() const { return current_; }
  /// Whether the study runs the current mode.
  bool CurrentIsChecked() const { return modes_.boxes[current_].Checked(); }
  std::ptrdiff_t CheckedCount() const;

  /// The records are others now than those shown before.
  virtual void ForgetShown() {}
  virtual void ShowDetails(const std::shared_ptr<CKivPlmMode>& mode) = 0;
  virtual void StoreDetails(CKivPlmMode& mode) const = 0;
  /// The settings of a mode that is checked for the first time.
  virtual void StartMode(CKivPlmMode&, std::size_t /*index*/) const {}
  /// Whether one more mode may be checked, the box being checked already; says why not.
  virtual bool MayCheckMore() { return true; }
  /// The rules that the shown details must meet before another mode is checked.
  virtual const CheckList& RulesBeforeChecking() const { return checks_; }
  /// Whose records are looked at: a page that is left is held up by the visible ones only.
  enum class Records { Visible, All };
  /// What is wrong with the record of a mode.
  virtual std::string RecordProblem(const CKivPlmMode& mode, Records records) const = 0;
  virtual std::string Summary(const CKivPlmMode& mode, std::size_t index) const = 0;

  /// The user changed the shown details.
  void TakeEdit();

  ui::LayoutItem ListLayout();

  bool busy_ = false;  ///< set while the tab changes controls itself

 private:
  void ShowNewStudy() override { ShowModes(); }
  void ShowStoredStudy() override;
  void ShowModes();

  void ChooseMode();
  void ClickBox(std::size_t index);
  void CheckMode(std::size_t index);
  void UncheckMode(std::size_t index);
  bool Meets(const CheckList& rules);
  void MakeCurrent(std::size_t index);
  void FillFirst(CKivPlmMode& mode, std::size_t index) const;
  void StoreCurrent();
  void ShowState(std::size_t index);
  bool Owns(const CKivPlmMode& mode) const;
  std::vector<Problem> RecordProblems(Records records) const;

  ModeList modes_;
  std::size_t current_ = 0;
  bool edited_ = false;        // the shown details differ from the record
  CKivPlmMode shownUnedited_;  // what they stored when they were shown
};

}  // namespace kiv
