#include "plm/method_panel.h"

namespace kiv {

ChannelPanel::ChannelPanel(Container* parent, std::int32_t number)
    : ModePanel(parent, number), XChannelList1(this, "XChannelList1") {
  checks_.Append(XChannelList1.Checks());
  AddSetting(ChannelsOf(XChannelList1.Changed));
}

void ChannelPanel::DataToCtls(const CKivPlmMode& mode) {
  XChannelList1.DataToCtls(mode);
}

void ChannelPanel::CtlsToData(CKivPlmMode& mode) const {
  mode.SetPlmMode(Number());
  mode.ClearChannelList();
  XChannelList1.CtlsToData(mode);
}

std::optional<Problem> ChannelPanel::StoredProblem(const CKivPlmMode& mode) {
  return XChannelList1.ModeProblem(mode);
}

std::string ChannelPanel::Summary(const CKivPlmMode& mode) const {
  return ChannelCountText(static_cast<std::size_t>(mode.ChannelCount()));
}

ui::LayoutItem ChannelPanel::Layout() {
  return XChannelList1.Layout();
}

MethodPanel::MethodPanel(Container* parent, std::int32_t number, std::string_view whenNone)
    : ModePanel(parent, number),
      cboMethod(this, "cboMethod"),
      XChannelList1(this, "XChannelList1"),
      methods_(SelectionMethods(number)),
      whenNone_(whenNone) {
  checks_.Append(XChannelList1.Checks(), [this] { return Uses(selection::kManual); });
  cboMethod.Changed.Connect([this] { HandleMethodChange(); });
  AddSetting(SettingOf(cboMethod.Changed, &CKivPlmMode::SelectionMethod, &CKivPlmMode::SetSelectionMethod));
  AddSetting(ChannelsOf(XChannelList1.Changed));
}

void MethodPanel::InitControls() {
  FillWords(cboMethod, methods_);
  CKivPlmMode defaults;
  DefaultsToData(defaults);
  DataToCtls(defaults);
}

void MethodPanel::DefaultsToData(CKivPlmMode& mode) const {
  mode.SetPlmMode(Number());
  mode.SetSelectionMethod(std::string(methods_.front().word));
}

void MethodPanel::DataToCtls(const CKivPlmMode& mode) {
  XChannelList1.DataToCtls(mode);
  SelectWord(cboMethod, methods_, mode.SelectionMethod());
  HandleMethodChange();
}

/// The channels wait in the list while a method is chosen that stores none.
void MethodPanel::ShowAgain(const CKivPlmMode& mode) {
  const std::string entered = XChannelList1.txtChannelList.Text();
  DataToCtls(mode);
  if (mode.ChannelCount() == 0 && mode.SelectionMethod() != selection::kManual.word) {
    XChannelList1.txtChannelList.SetText(entered);
  }
}

void MethodPanel::CtlsToData(CKivPlmMode& mode) const {
  const std::string method = Method();
  mode.SetPlmMode(Number());
  mode.ClearChannelList();
  if (!method.empty()) {
    mode.SetSelectionMethod(method);
  } else if (!whenNone_.empty()) {
    mode.SetSelectionMethod(whenNone_);
  }
  // The channels of a stored method that the list does not know stay with its word.
  const bool keepsUnknown = method.empty() && whenNone_.empty();
  if (keepsUnknown || method == selection::kManual.word) XChannelList1.CtlsToData(mode);
}

void MethodPanel::HandleMethodChange() {
  XChannelList1.SetEnabled(Uses(selection::kManual));
}

std::optional<Problem> MethodPanel::StoredProblem(const CKivPlmMode& mode) {
  if (mode.SelectionMethod() != selection::kManual.word) return std::nullopt;
  return XChannelList1.ModeProblem(mode);
}

std::string MethodPanel::Summary(const CKivPlmMode& mode) const {
  if (mode.SelectionMethod() == selection::kManual.word) {
    return ChannelCountText(static_cast<std::size_t>(mode.ChannelCount()));
  }
  return mode.SelectionMethod() == selection::kAllWord ? "all channels" : "no method";
}

ui::LayoutItem MethodPanel::MethodLayout() {
  return ui::Form({ui::Field("&Method:", {ui::Single(cboMethod), ui::Stretch()})});
}

ui::LayoutItem MethodPanel::Layout() {
  return ui::Column({MethodLayout(), XChannelList1.Layout()});
}

}  // namespace kiv
