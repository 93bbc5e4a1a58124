#pragma once

#include "editor/data_file_destination.h"
#include "editor/document_chooser.h"
#include "editor/general_tab.h"
#include "hom/hom_data.h"
#include "ui/buttons.h"
#include "ui/text_box.h"

namespace kiv {

/// First tab of a HOM study: its scenario, its data file and how long it runs. The records are written when
/// the study is saved.
class XKivHomGen : public GeneralTabOf<CKivHomData> {
 public:
  static constexpr const char* kClassName = "XKivHomGen";

  XKivHomGen();

  ui::LayoutItem Layout() override;

  DocumentChooser fdocCBScenario;
  ui::Button cmdNewScenario;
  XKivDataFileDestination XDest;
  ui::TextBox txtDuration;  ///< minutes
};

}  // namespace kiv
