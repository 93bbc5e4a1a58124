#include "rfc/detail_tab.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/numeric_text.h"
#include "editor/file_name_checks.h"
#include "editor/folder_box.h"
#include "editor/kiv_study_ctls.h"
#include "editor/number_checks.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

constexpr std::string_view kExtension = ".rft";
constexpr std::int32_t kMaxNameLength = 12;
constexpr const char* kPollingInterval = "Polling Interval";
constexpr std::int32_t kLongestInterval = 60;

/// The least polling interval in seconds for up to so many DNs.
struct IntervalStep {
  std::size_t dns;
  std::int32_t seconds;
};
constexpr IntervalStep kIntervalSteps[] = {{4, 2}, {6, 3}, {8, 4}, {10, 5}};

/// Whether no box before this one counts and has the same text.
template <class Texts>
bool IsFirstOfItsText(std::size_t row, const Texts& textOf) {
  const std::string text = textOf(row);
  for (std::size_t earlier = 0; !text.empty() && earlier < row; ++earlier) {
    if (textOf(earlier) == text) return false;
  }
  return true;
}

}  // namespace

XKivRfcDetail::XKivRfcDetail()
    : TabOf(kClassName, "Detail"),
      fraDestination(this, "fraDestination"),
      txtPath(&fraDestination, "txtPath"),
      cmdBrowse(&fraDestination, "cmdBrowse"),
      fraDns(this, "fraDns"),
      txtDirectoryNumber(&fraDns, "txtDirectoryNumber"),
      txtFilename(&fraDns, "txtFilename"),
      lblUnused(&fraDns, "lblUnused"),
      cmdRemoveUnused(&fraDns, "cmdRemoveUnused"),
      txtPollingInterval(this, "txtPollingInterval"),
      lblInterval(this, "lblInterval") {
  fraDestination.SetCaption("Data File Destination");
  fraDns.SetCaption("Directory Numbers and Their Study Data Files");
  cmdRemoveUnused.SetCaption("Remo&ve Unused");
  cmdRemoveUnused.Clicked.Connect([this] { RemoveUnused(); });
  OfferFolders(cmdBrowse, txtPath, [this] { ReportChange(); });
  BindFields();
  for (XDnBox& box : txtDirectoryNumber) {
    box.Changed.Connect([this] {
      ShowLeastInterval();
      ReportChange();
    });
  }
  for (ui::TextBox& box : txtFilename) box.Changed.Connect([this] { ReportChange(); });
}

void XKivRfcDetail::BindFields() {
  const PageField& interval =
      Bind(txtPollingInterval, At(&CKivStudyData::PollingInterval, &CKivStudyData::SetPollingInterval))
          .Default(std::to_string(kIntervalSteps[0].seconds))
          .Checked(IntervalChecks());
  const PageField& folder = Bind(txtPath, At(&CKivRfcData::Path, &CKivRfcData::SetPath))
                                .Checked(FolderChecks(txtPath, host::MessageStyle::Warning));
  const PageField& dns = Bind({.showNew = [this] { ShowDns({}); },
                               .showStored = [this] { ShowDns(Required(SubRecord()->DNs())); },
                               .save = [this] { SaveDns(); }})
                             .Checked(DnChecks())
                             .Checked(FilenameChecks());
  CheckInOrder({&folder, &dns, &interval});
  // What the host's pattern or the rows do not fit is told last, when all the rest is right.
  for (XDnBox& box : txtDirectoryNumber) checks_.Append(box.Checks());
  checks_.Append(RoomChecks());
}

CheckList XKivRfcDetail::RoomChecks() {
  CheckList checks;
  const auto stored = [](const std::string& dn) { return "DN " + dn + " is stored with this study, but "; };
  for (const std::size_t row : {kSingleRow, kFirstOfMultiple}) {
    checks.Add(
        txtDirectoryNumber[row].edit, [this, row] { return !CanUse(row) || unshown_.empty(); },
        [this, stored] { return stored(unshown_.front()->Dn()) + "no row can show it."; });
  }
  checks.Add(
      cmdRemoveUnused, [this] { return !StoredUnused(); },
      [this, stored] { return stored(StoredUnused().value_or("")) + RoomText(); });
  return checks;
}

CheckList XKivRfcDetail::DnChecks() {
  CheckList checks;
  const auto tracedDn = [this](std::size_t row) {
    return IsTraced(row) ? txtDirectoryNumber[row].Text() : std::string();
  };
  for (std::size_t row = 0; row < kRows; ++row) {
    checks.Add(
        txtDirectoryNumber[row].edit, [row, tracedDn] { return IsFirstOfItsText(row, tracedDn); },
        "Duplicate DN entered. Please enter a unique DN.");
  }
  for (const std::size_t row : {kSingleRow, kFirstOfMultiple}) {
    checks.Add(
        txtDirectoryNumber[row].edit,
        [this, row] { return !txtDirectoryNumber[row].Enabled() || TracedDns() > 0; },
        "You must enter at least one DN. Please enter a DN.");
  }
  return checks;
}

CheckList XKivRfcDetail::FilenameChecks() {
  CheckList checks;
  const auto usedName = [this](std::size_t row) {
    return txtFilename[row].Enabled() ? txtFilename[row].Text() : std::string();
  };
  for (std::size_t row = 0; row < kRows; ++row) {
    checks.Add(
        txtFilename[row], [row, usedName] { return IsFirstOfItsText(row, usedName); },
        "Duplicate study data file name entered. Please enter a unique study data file name.");
  }
  for (std::size_t row = 0; row < kRows; ++row) {
    checks.Append(FileNameChecks(
                      txtFilename[row], [] { return kMaxNameLength; }, DataFileNameTexts(), NameKind::Plain),
                  [row, usedName] { return !usedName(row).empty(); });
  }
  for (std::size_t row = 0; row < kRows; ++row) {
    checks.Add(
        txtFilename[row], [this, row] { return !IsTraced(row) || !txtFilename[row].Text().empty(); },
        "If you entered a DN you must have a corresponding study data file name.");
  }
  return checks;
}

CheckList XKivRfcDetail::IntervalChecks() {
  CheckList checks;
  const auto interval = [this] { return std::string(Trimmed(txtPollingInterval.Text())); };
  checks.Add(
      txtPollingInterval,
      [this] { return txtPollingInterval.Text().empty() || IsNumeric(txtPollingInterval.Text()); },
      NotNumericText(kPollingInterval));
  checks.Add(
      txtPollingInterval,
      [this, interval] { return IsNumberBetween("0" + interval(), LeastInterval(), kLongestInterval); },
      [this] {
        return RangeText({kPollingInterval, LeastInterval(), kLongestInterval, "seconds"}) + ".";
      });
  return checks;
}

bool XKivRfcDetail::Validate() {
  ReadFeature();
  EnableRows();
  ShowLeastInterval();
  ShowUnused();
  return Tab::Validate();
}

void XKivRfcDetail::TabShown() {
  ReadFeature();
  EnableRows();
  MoveEntries();
  if (multipleDns_) PlaceUnshown(Rows::Usable);  // an emptied single row waits for what the user types
  ShowLeastInterval();
  ShowUnused();
}

/// What is known of the ECP stays known while its switch has no features on record.
void XKivRfcDetail::ReadFeature() {
  if (KnowsFeature()) multipleDns_ = SubRecord()->Faf().F465;
}

void XKivRfcDetail::EnableRows() {
  for (std::size_t row = 0; row < kRows; ++row) {
    txtDirectoryNumber[row].SetEnabled(CanUse(row));
    txtFilename[row].SetEnabled(CanUse(row));
  }
}

/// Fills the rows that can be used. What a switch does not trace any more stands in the others.
void XKivRfcDetail::ShowDns(const DnCollection& dns) {
  multipleDns_ = YNToCheckValue(SubRecord()->MultipleDns()) != 0;
  ReadFeature();
  EnableRows();
  arrangedForMultiple_ = multipleDns_;
  for (std::size_t row = 0; row < kRows; ++row) ShowRow(row, {}, {});
  unshown_.assign(dns.begin(), dns.end());
  stored_.clear();
  for (const auto& dn : dns) stored_.insert(dn->Dn());
  PlaceUnshown(Rows::Usable);
  if (KnowsFeature() && !multipleDns_) PlaceUnshown(Rows::Any);
  ShowLeastInterval();
  ShowUnused();
}

void XKivRfcDetail::PlaceUnshown(Rows rows) {
  for (std::size_t row = 0; row < kRows && !unshown_.empty(); ++row) {
    if ((rows == Rows::Usable && !CanUse(row)) || !IsFree(row)) continue;
    ShowRow(row, unshown_.front()->Dn(), WithoutExtension(unshown_.front()->DataFile(), kExtension));
    unshown_.erase(unshown_.begin());
  }
}

void XKivRfcDetail::ShowRow(std::size_t row, const std::string& dn, const std::string& filename) {
  txtDirectoryNumber[row].SetText(dn);
  txtFilename[row].SetText(filename);
}

/// After a change of the ECP's feature, what was entered in a row that cannot be used any more moves to one
/// that can, as far as a row is free.
void XKivRfcDetail::MoveEntries() {
  if (arrangedForMultiple_ == multipleDns_) return;
  arrangedForMultiple_ = multipleDns_;
  // The first row from 1 that is free for the single DN, or the first whose DN can be the single one.
  std::size_t row = kFirstOfMultiple;
  while (row < kRows && (multipleDns_ ? !IsFree(row) : !IsFilled(row))) ++row;
  if (row == kRows) return;
  const std::size_t from = multipleDns_ ? kSingleRow : row;
  const std::size_t to = multipleDns_ ? row : kSingleRow;
  if (!IsFilled(from) || !IsFree(to)) return;
  ShowRow(to, txtDirectoryNumber[from].Text(), txtFilename[from].Text());
  ShowRow(from, {}, {});
}

std::string XKivRfcDetail::RoomText() const {
  return std::string("this ECP traces ") + (multipleDns_ ? "DN 1 to 10." : "a single DN.");
}

std::optional<std::string> XKivRfcDetail::StoredUnused() const {
  for (std::size_t row = 0; row < kRows; ++row) {
    const std::string dn = txtDirectoryNumber[row].Text();
    if (IsUnused(row) && stored_.contains(dn)) return dn;
  }
  return std::nullopt;
}

void XKivRfcDetail::ShowUnused() {
  std::size_t unused = unshown_.size();
  for (std::size_t row = 0; row < kRows; ++row) unused += IsUnused(row) ? 1 : 0;
  cmdRemoveUnused.SetVisible(unused > 0);
  lblUnused.SetCaption(unused == 0 ? std::string()
                                   : std::to_string(unused) + (unused == 1 ? " DN is" : " DNs are") +
                                         " unused: " + RoomText());
}

void XKivRfcDetail::RemoveUnused() {
  {
    const FlagGuard filling = HoldReports();
    for (std::size_t row = 0; row < kRows; ++row) {
      if (IsUnused(row)) ShowRow(row, {}, {});
    }
    unshown_.clear();
  }
  ShowUnused();
  ReportChange();
}

std::size_t XKivRfcDetail::TracedDns() const {
  std::size_t count = 0;
  for (std::size_t row = 0; row < kRows; ++row) count += IsTraced(row) ? 1 : 0;
  return count;
}

std::int32_t XKivRfcDetail::LeastInterval() const {
  const auto* step = std::find_if(std::begin(kIntervalSteps), std::end(kIntervalSteps),
                                  [dns = TracedDns()](const IntervalStep& one) { return dns <= one.dns; });
  return step == std::end(kIntervalSteps) ? kIntervalSteps[0].seconds : step->seconds;
}

void XKivRfcDetail::ShowLeastInterval() {
  const std::size_t dns = TracedDns();
  std::string text = "(at least " + std::to_string(LeastInterval());
  if (dns > 0) text += " for " + std::to_string(dns) + (dns == 1 ? " DN" : " DNs");
  lblInterval.SetCaption(text + ")");
}

void XKivRfcDetail::SaveDns() {
  ReadFeature();
  EnableRows();
  CKivRfcData& data = *SubRecord();
  data.SetMultipleDns(BoolToYN(multipleDns_));  // as it was stored while no features are on record
  data.SetDNs(std::make_shared<DnCollection>());
  for (std::size_t row = 0; row < kRows; ++row) {
    if (!IsTraced(row)) continue;
    data.AddDn(txtDirectoryNumber[row].Text(), txtFilename[row].Text() + std::string(kExtension));
  }
  for (const auto& dn : unshown_) data.AddDn(dn->Dn(), dn->DataFile());
}

void XKivRfcDetail::SaveState() {
  Tab::SaveState();
  stored_.clear();
  for (const auto& dn : Required(Required(SubRecord()).DNs())) stored_.insert(dn->Dn());
}

ui::LayoutItem XKivRfcDetail::Layout() {
  using namespace ui;
  const auto field = [this](std::size_t row) {
    const std::string number = std::to_string(row);
    const std::string label = row == kSingleRow ? "S&ingle DN:"
                              : row < 10        ? "DN &" + number + ":"
                                                : "DN 1&0:";
    return Field(label, {Single(txtDirectoryNumber[row].edit), Text("file"), Single(txtFilename[row])});
  };
  const auto fields = [&field](std::vector<LayoutItem> items, std::size_t first, std::size_t last) {
    for (std::size_t row = first; row <= last; ++row) items.push_back(field(row));
    return Form(std::move(items));
  };
  return Column(
      {Group(fraDestination, {Form({Field("F&older:", {Single(txtPath), Single(cmdBrowse)})})}),
       Group(fraDns, {Row({fields({}, 0, 5),
                           fields({Text("DN 1 to 10: for an ECP that traces several DNs")}, 6, 10)})}),
       Row({Single(lblUnused), Single(cmdRemoveUnused), Stretch()}),
       Form(
           {Field("Pollin&g interval:", {Single(txtPollingInterval), Text("seconds"), Single(lblInterval)})}),
       Stretch()});
}

}  // namespace kiv
