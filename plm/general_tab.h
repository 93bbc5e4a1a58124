#pragma once

#include "editor/data_file_destination.h"
#include "editor/document_chooser.h"
#include "editor/general_tab.h"
#include "plm/plm_data.h"
#include "ui/buttons.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace kiv {

/// First tab of a PLM study: its scenario, its data file, how long it runs and what its data are tagged with.
/// The records are written when the study is saved.
class XKivPlmGen : public GeneralTabOf<CKivPlmData> {
 public:
  static constexpr const char* kClassName = "XKivPlmGen";

  XKivPlmGen();

  ui::LayoutItem Layout() override;

  DocumentChooser fdocCBScenario;
  ui::Button cmdNewScenario;
  XKivDataFileDestination XDest;
  ui::Frame Frame2;
  ui::TextBox txtDuration;       ///< minutes
  ui::TextBox txtRetrieveDelay;  ///< minutes
  ui::TextBox txtTag;

 private:
  bool Validate() override;
  void SaveRest() override { fdocCBScenario.Refresh(); }
};

}  // namespace kiv
