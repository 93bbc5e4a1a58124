#pragma once

#include <memory>

#include "core/msql.h"
#include "editor/data_file_destination.h"
#include "editor/dd_list_view.h"
#include "editor/general_tab.h"
#include "ui/text_box.h"
#include "vcsa/vcs_data.h"

namespace kiv {

/// First tab of a VCSA study: its cells, its data file, how long it runs and when its data are retrieved. A
/// drop changes the cells of the record at once; the other values are written when the study is saved.
class XKivVcsGen : public GeneralTabOf<CKivVcsData> {
 public:
  static constexpr const char* kClassName = "XKivVcsGen";

  XKivVcsGen();

  ui::LayoutItem Layout() override;

  ui::Frame fraCells;
  XDDListView dlvwCell;
  XKivDataFileDestination XDest;
  ui::TextBox txtDuration;       ///< minutes
  ui::TextBox txtRetrieveDelay;  ///< minutes

 private:
  void ShowStoredStudy() override;

  std::weak_ptr<MSQL::Announcer> dropped_;  ///< what the cells of a drop are going to ask
};

}  // namespace kiv
