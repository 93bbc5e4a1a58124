#pragma once

#include <span>
#include <string>

#include "plm/channel_list.h"
#include "plm/mode_panel.h"
#include "plm/word_list.h"
#include "ui/combo_box.h"

namespace kiv {

/// Panel of a mode whose channels are listed.
class ChannelPanel : public ModePanel {
 public:
  ChannelPanel(Container* parent, std::int32_t number);

  void InitControls() override { XChannelList1.DataToCtls({}); }
  void DataToCtls(const CKivPlmMode& mode) override;
  void CtlsToData(CKivPlmMode& mode) const override;
  std::string Summary(const CKivPlmMode& mode) const override;
  ui::LayoutItem Layout() override;

  XChannelList XChannelList1;

 protected:
  ui::Control* FirstControl() override { return &XChannelList1.txtChannelList; }
  std::optional<Problem> StoredProblem(const CKivPlmMode& mode) override;
};

/// Panel of a mode that selects its channels by one of several methods, the manual one among them.
class MethodPanel : public ModePanel {
 public:
  /// `whenNone` is stored while no method is chosen; when it is empty, the stored method stays.
  MethodPanel(Container* parent, std::int32_t number, std::string_view whenNone = {});

  void InitControls() override;
  void DataToCtls(const CKivPlmMode& mode) override;
  void ShowAgain(const CKivPlmMode& mode) override;
  void Forget() override { XChannelList1.DataToCtls({}); }
  void CtlsToData(CKivPlmMode& mode) const override;
  void DefaultsToData(CKivPlmMode& mode) const override;
  std::string Summary(const CKivPlmMode& mode) const override;
  ui::LayoutItem Layout() override;

  /// Enables the controls that belong to the chosen method and disables the others.
  virtual void HandleMethodChange();

  ui::ComboBox cboMethod;
  XChannelList XChannelList1;

 protected:
  bool Uses(const WordChoice& method) const { return Method() == method.word; }
  ui::Control* FirstControl() override { return &cboMethod; }
  std::optional<Problem> StoredProblem(const CKivPlmMode& mode) override;
  ui::LayoutItem MethodLayout();

 private:
  std::string Method() const { return SelectedWord(cboMethod, methods_, {}); }

  std::span<const WordChoice> methods_;
  std::string whenNone_;
};

}  // namespace kiv
