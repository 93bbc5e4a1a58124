#pragma once

#include "editor/data_file_destination.h"
#include "editor/dd_list_view.h"
#include "editor/tab.h"
#include "ui/text_box.h"
#include "vcsa/vcs_data.h"

namespace kiv {

/// First tab of a VCSA study: its cells, its data file, how long it runs and when its data are retrieved.
class XKivVcsGen : public TabOf<CKivVcsData> {
 public:
  static constexpr const char* kClassName = "XKivVcsGen";

  XKivVcsGen();

  bool IsTabValid(const std::string& hostText) override;
  void LoadState() override;
  void SaveData() override;
  void ShowIdentifier() override { XDest.SetStudyID(Study()->ID()); }
  ui::LayoutItem Layout() override;

  ui::Frame fraCells;
  XDDListView dlvwCell;
  XKivDataFileDestination XDest;
  ui::TextBox txtDuration;       ///< minutes
  ui::TextBox txtRetrieveDelay;  ///< minutes

 private:
  void ShowNewStudy() override;
  void ShowStoredStudy() override;
};

}  // namespace kiv
