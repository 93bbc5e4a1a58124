#pragma once

#include <string>

#include "editor/check_list.h"
#include "ui/masked_edit.h"

namespace kiv {

/// Entry box for a directory number (DN), shown by the pattern of the host's setting kPhoneNumberMask.
/// A DN with more digits than the pattern has places, or with other characters, is shown as it is.
class XDnBox : public ui::Container {
 public:
  XDnBox(ui::Container* parent, std::string name);

  /// The bare digits; with no mask the text as it stands.
  std::string Text() const;
  void SetText(const std::string& dn) { InitCtl(dn); }
  const std::string& Mask() const { return edit.Mask(); }
  /// Applies a mask and keeps the text, which is shown without one when it is not of digits only.
  void SetMask(const std::string& mask) { Show(mask, Text()); }

  /// Shows a DN by the host's mask.
  void InitCtl(const std::string& dn);
  /// Whether the DN fits the host's mask; tells the user when it does not. A disabled or empty box is valid.
  bool IsValid(const std::string& title);
  /// What is wrong with the DN; empty when nothing is.
  std::string Problem() const;
  /// The rule that there is none.
  CheckList Checks();

  void Accept(ui::ControlVisitor&) override {}  // shown as its inner box

  ui::MaskedEdit edit;  ///< the inner box: stands in the layout, has the focus, carries the marks

  /// Raised when the user changed the DN.
  Signal<> Changed;

 private:
  void Show(const std::string& mask, const std::string& text);

  bool rewriting_ = false;  // the box is being rewritten by itself
  ScopedConnection settingsChanged_;
};

}  // namespace kiv
