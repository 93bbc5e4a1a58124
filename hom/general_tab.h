#pragma once

#include "editor/data_file_destination.h"
#include "editor/document_chooser.h"
#include "editor/tab.h"
#include "hom/hom_data.h"
#include "ui/buttons.h"
#include "ui/text_box.h"

namespace kiv {

/// First tab of a HOM study: its scenario, its data file and how long it runs.
class XKivHomGen : public TabOf<CKivHomData> {
 public:
  static constexpr const char* kClassName = "XKivHomGen";

  XKivHomGen();

  void LoadState() override;
  void SaveData() override;
  void ShowIdentifier() override { XDest.SetStudyID(Study()->ID()); }
  ui::LayoutItem Layout() override;

  DocumentChooser fdocCBScenario;
  ui::Button cmdNewScenario;
  XKivDataFileDestination XDest;
  ui::TextBox txtDuration;  ///< minutes

 private:
  void ShowNewStudy() override;
  void ShowStoredStudy() override;
};

}  // namespace kiv
