#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

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
/// from 1 are used, elsewhere only row 0. The records are written when the study is saved.
///
/// A DN that is stored and finds no row of use is refused until the user removes it. One that was only
/// entered stays in sight, and a save leaves it out.
///
/// The ECP may change on another tab. Loading, coming to this tab and checking it find out which rows can be
/// used; entries move to other rows only when the user can see it, on coming to the tab after a change.
class XKivRfcDetail : public TabOf<CKivRfcData> {
 public:
  static constexpr const char* kClassName = "XKivRfcDetail";

  static constexpr std::size_t kRows = 11;

  XKivRfcDetail();

  ui::LayoutItem Layout() override;
  void SaveState() override;

  ui::Frame fraDestination;
  ui::TextBox txtPath;
  ui::Button cmdBrowse;
  ui::Frame fraDns;
  ui::ControlArray<XDnBox, kRows> txtDirectoryNumber;
  ui::ControlArray<ui::TextBox, kRows> txtFilename;
  ui::Label lblUnused;             ///< says how many DNs find no room
  ui::Button cmdRemoveUnused;      ///< there while there are some
  ui::TextBox txtPollingInterval;  ///< seconds
  ui::Label lblInterval;           ///< the least interval for the DNs as they are now

 private:
  void BindFields();
  void TabShown() override;
  bool Validate() override;

  CheckList DnChecks();
  CheckList FilenameChecks();
  CheckList IntervalChecks();
  CheckList RoomChecks();

  // Which rows can be used.
  bool KnowsFeature() const { return SubRecord()->Faf().InstanceId != 0; }
  void ReadFeature();
  void EnableRows();
  bool CanUse(std::size_t row) const { return (row != kSingleRow) == multipleDns_; }

  // What stands in them.
  void ShowDns(const DnCollection& dns);
  void MoveEntries();
  enum class Rows { Usable, Any };
  void PlaceUnshown(Rows rows);
  void ShowRow(std::size_t row, const std::string& dn, const std::string& filename);
  bool IsFilled(std::size_t row) const { return !txtDirectoryNumber[row].Text().empty(); }
  bool IsFree(std::size_t row) const { return !IsFilled(row) && txtFilename[row].Text().empty(); }
  bool IsUnused(std::size_t row) const { return IsFilled(row) && !CanUse(row); }
  bool IsTraced(std::size_t row) const { return txtDirectoryNumber[row].Enabled() && IsFilled(row); }
  void SaveDns();

  // DNs without room.
  std::optional<std::string> StoredUnused() const;
  std::string RoomText() const;
  void RemoveUnused();

  std::size_t TracedDns() const;
  std::int32_t LeastInterval() const;
  void ShowLeastInterval();
  void ShowUnused();

  static constexpr std::size_t kSingleRow = 0;
  static constexpr std::size_t kFirstOfMultiple = 1;

  bool multipleDns_ = false;                   // whether the ECP can trace several DNs, as far as is known
  bool arrangedForMultiple_ = false;           // for which of the two the entries stand in their rows
  std::vector<std::shared_ptr<CDn>> unshown_;  // stored DNs for which there is no row
  std::set<std::string> stored_;               // the DNs that the study is stored with
};

}  // namespace kiv
