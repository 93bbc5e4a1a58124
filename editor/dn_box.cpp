#include "editor/dn_box.h"

#include <utility>

#include "base/flag_guard.h"
#include "base/utf16.h"
#include "editor/kiv_study_ctls.h"
#include "host/constants.h"
#include "host/services.h"

namespace kiv {

namespace {

bool HasOnlyDigits(const std::string& dn) {
  using namespace MKivStudyCtls;
  return FindCharInSet(1, dn, "1234567890", CharSearch::NotInSet, Comparison::Exact) == 0;
}

std::string HostMask() {
  return host::TheSettings().General(host::kPhoneNumberMask);
}

}  // namespace

XDnBox::XDnBox(ui::Container* parent, std::string name)
    : Container(parent, std::move(name)), edit(this, Name() + ".edit") {
  edit.Changed.Connect([this] {
    if (!rewriting_) Changed.Raise();
  });
  edit.FocusLost.Connect([this] { InitCtl(Text()); });
  settingsChanged_ = host::TheEvents().appGeneralState_StateChange.Connect([this] { InitCtl(Text()); });
}

std::string XDnBox::Text() const {
  return edit.ClipText();
}

void XDnBox::InitCtl(const std::string& dn) {
  const std::string mask = HostMask();
  const bool tooLong = CharacterCount(dn) > ui::MaskedEdit::DigitPlaces(mask);
  Show(tooLong ? std::string() : mask, dn);
}

void XDnBox::Show(const std::string& mask, const std::string& text) {
  const FlagGuard rewriting(rewriting_);
  edit.SetMask({});
  edit.SetText({});
  edit.SetMask(HasOnlyDigits(text) ? mask : std::string());
  edit.SetText(text);
}

std::string XDnBox::Problem() const {
  const std::string& dn = edit.ClipText();
  if (!Enabled() || edit.Text().empty()) return {};
  const std::string mask = HostMask();
  const bool fits = mask.empty() || dn.empty() || CharacterCount(dn) == ui::MaskedEdit::DigitPlaces(mask);
  if (!fits) return "Number of digits in DN doesn't match mask.";
  return HasOnlyDigits(dn) ? std::string() : "Value for DN may contain only digits.";
}

CheckList XDnBox::Checks() {
  CheckList checks;
  checks.Add(
      edit, [this] { return Problem().empty(); }, [this] { return Problem(); });
  return checks;
}

bool XDnBox::IsValid(const std::string& title) {
  const std::string problem = Problem();
  if (problem.empty()) return true;
  host::TheMessageBoxes().Show(problem, host::MessageStyle::Critical, title);
  edit.SetFocus();
  return false;
}

}  // namespace kiv
