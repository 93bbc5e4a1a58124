#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "editor/dn_box.h"
#include "editor/tab.h"
#include "rfc/rfc_data.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace kiv {

/// Second tab of an RF call trace study: where its data files go, the directory numbers (DNs) that it traces,
/// each with its data file, and the polling interval. Where the ECP's switch can trace several DNs the rows
/// from 1 are used, elsewhere only row 0.
class XKivRfcDetail : public TabOf<CKivRfcData> {
 public:
  static constexpr const char* kClassName = "XKivRfcDetail";

  static constexpr std::size_t kRows = 11;

  XKivRfcDetail();

  bool IsTabValid(const std::string& hostText) override;
  void SaveData() override;
  ui::LayoutItem Layout() override;

  ui::Frame fraDestination;
  ui::TextBox txtPath;
  ui::Button cmdBrowse;
  ui::Frame fraDns;
  ui::ControlArray<XDnBox, kRows> txtDirectoryNumber;
  ui::ControlArray<ui::TextBox, kRows> txtFilename;
  ui::Label lblUnused;             ///< says how many DNs find no room
  ui::TextBox txtPollingInterval;  ///< seconds
  ui::Label lblInterval;           ///< the least interval for the DNs as they are now

 private:
  void ShowNewStudy() override;
  void ShowStoredStudy() override;
  void TabShown() override { FollowEcp(); }

  void AddDnChecks();
  void AddFilenameChecks();
  void AddIntervalChecks();
  void ShowDns(const DnCollection& dns);
  void ShowRow(std::size_t row, const std::string& dn, const std::string& filename);
  void FollowEcp();
  bool HasMultipleDns() const;
  bool IsFilled(std::size_t row) const { return !txtDirectoryNumber[row].Text().empty(); }
  bool IsTraced(std::size_t row) const { return txtDirectoryNumber[row].Enabled() && IsFilled(row); }
  std::size_t TracedDns() const;
  std::int32_t LeastInterval() const;
  void ShowLeastInterval();
  void ShowUnused();
};

}  // namespace kiv
