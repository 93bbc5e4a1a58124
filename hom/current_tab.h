#pragma once

#include "editor/tab.h"
#include "hom/hom_data.h"
#include "ui/buttons.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace kiv {

/// Third tab of a HOM study: whether it also collects data for the current standard, and where on the OMP-FX
/// that data file is written. The record is written when the study is saved.
class XKivHomCurrent : public TabOf<CKivHomData> {
 public:
  static constexpr const char* kClassName = "XKivHomCurrent";

  XKivHomCurrent();

  ui::LayoutItem Layout() override;

  ui::CheckBox chkCollectData;
  ui::Frame fraCurrentStudy;  ///< usable only while data is collected
  ui::CheckBox chkStartOnFail;
  ui::TextBox txtCurStdPath;
  ui::TextBox txtCurStdDatafile;  ///< without its extension
  ui::Label lblExtension;

 private:
  static CheckList DirectoryChecks(ui::TextBox& box);
  Place<std::string> ShownName() const;
};

}  // namespace kiv
