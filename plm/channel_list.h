#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/check_list.h"
#include "plm/plm_mode.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/text_box.h"

namespace kiv {

/// The channels of a mode that selects them by hand, one a line. Commas, semicolons and blanks part entries
/// as well; a pasted list is split into lines.
class XChannelList : public ui::Container {
 public:
  XChannelList(Container* parent, std::string name);

  /// Shows the channels of a mode in the order of its list.
  void DataToCtls(const CKivPlmMode& mode);
  /// Adds the channels to a mode; an entry given twice is added once.
  bool CtlsToData(CKivPlmMode& mode) const;
  /// Checks the entries and tells the user what is wrong.
  bool ValidateControls() const { return checks_.Enforce(); }
  /// Checks a stored mode and tells the user what is wrong.
  bool ValidateMode(const CKivPlmMode& mode);
  /// The same without telling.
  std::optional<Problem> ModeProblem(const CKivPlmMode& mode);
  const CheckList& Checks() const { return checks_; }

  ui::LayoutItem Layout();
  void Accept(ui::ControlVisitor&) override {}  // shown by its layout

  ui::Frame fraChannels;
  ui::TextArea txtChannelList;
  ui::Label lblCount;

  /// Raised when the entries changed.
  Signal<> Changed;

 private:
  std::vector<std::string_view> Entries() const;
  std::string FirstProblem() const;
  void ShowCount();

  CheckList checks_;
};

/// A number of channels in words.
std::string ChannelCountText(std::size_t count);

}  // namespace kiv
