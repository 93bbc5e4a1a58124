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

namespace kiv {

namespace {

using namespace MKivStudyCtls;

constexpr std::size_t kSingleRow = 0;
constexpr std::size_t kFirstOfMultiple = 1;
constexpr std::string_view kExtension = ".rft";
constexpr std::int32_t kMaxNameLength = 12;
constexpr const char* kDefaultPollingInterval = "2";
constexpr std::int32_t kLongestInterval = 60;

/// The least polling interval in seconds for up to so many DNs.
struct IntervalStep {
  std::size_t dns;
  std::int32_t seconds;
};
constexpr IntervalStep kIntervalSteps[] = {{4, 2}, {6, 3}, {8, 4}, {10, 5}};

std::string WithoutExtension(std::string name) {
  if (name.ends_with(kExtension)) name.resize(name.size() - kExtension.size());
  return name;
}

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
      txtPollingInterval(this, "txtPollingInterval"),
      lblInterval(this, "lblInterval") {
  fraDestination.SetCaption("Data File Destination");
  fraDns.SetCaption("Directory Numbers and Their Study Data Files");
  OfferFolders(cmdBrowse, txtPath);
  txtPollingInterval.SetKeyFilter(NumericKeyFilter);

  checks_.Append(FolderChecks(txtPath, host::MessageStyle::Warning));
  AddDnChecks();
  AddFilenameChecks();
  AddIntervalChecks();

  for (XDnBox& box : txtDirectoryNumber) {
    box.Changed.Connect([this] { ShowLeastInterval(); });
    ReportChangesOf(box.Changed);
  }
  for (ui::TextBox& box : txtFilename) ReportChangesOf(box.Changed);
  ReportChangesOf(txtPath.Changed);
  ReportChangesOf(txtPollingInterval.Changed);
}

void XKivRfcDetail::AddDnChecks() {
  const auto tracedDn = [this](std::size_t row) {
    return IsTraced(row) ? txtDirectoryNumber[row].Text() : std::string();
  };
  for (std::size_t row = 0; row < kRows; ++row) {
    checks_.Add(
        txtDirectoryNumber[row].edit, [row, tracedDn] { return IsFirstOfItsText(row, tracedDn); },
        "Duplicate DN entered. Please enter a unique DN.");
  }
  for (const std::size_t row : {kSingleRow, kFirstOfMultiple}) {
    checks_.Add(
        txtDirectoryNumber[row].edit,
        [this, row] { return !txtDirectoryNumber[row].Enabled() || TracedDns() > 0; },
        "You must enter at least one DN. Please enter a DN.");
  }
}

void XKivRfcDetail::AddFilenameChecks() {
  const auto usedName = [this](std::size_t row) {
    return txtFilename[row].Enabled() ? txtFilename[row].Text() : std::string();
  };
  for (std::size_t row = 0; row < kRows; ++row) {
    checks_.Add(
        txtFilename[row], [row, usedName] { return IsFirstOfItsText(row, usedName); },
        "Duplicate study data file name entered. Please enter a unique study data file name.");
  }
  for (std::size_t row = 0; row < kRows; ++row) {
    checks_.Append(FileNameChecks(
                       txtFilename[row], [] { return kMaxNameLength; }, DataFileNameTexts(), NameKind::Plain),
                   [row, usedName] { return !usedName(row).empty(); });
  }
  for (std::size_t row = 0; row < kRows; ++row) {
    checks_.Add(
        txtFilename[row], [this, row] { return !IsTraced(row) || !txtFilename[row].Text().empty(); },
        "If you entered a DN you must have a corresponding study data file name.");
  }
}

void XKivRfcDetail::AddIntervalChecks() {
  const auto interval = [this] { return std::string(Trimmed(txtPollingInterval.Text())); };
  checks_.Add(
      txtPollingInterval,
      [this] { return txtPollingInterval.Text().empty() || IsNumeric(txtPollingInterval.Text()); },
      "Polling Interval must be numeric.");
  checks_.Add(
      txtPollingInterval,
      [this, interval] { return IsNumberBetween("0" + interval(), LeastInterval(), kLongestInterval); },
      [this] {
        return "Polling Interval must be between " + std::to_string(LeastInterval()) + " and " +
               std::to_string(kLongestInterval) + " seconds inclusive.";
      });
  // A DN that the host's pattern does not fit is told last, when all the rest is right.
  for (XDnBox& box : txtDirectoryNumber) {
    checks_.Add(
        box.edit, [&box] { return box.Problem().empty(); }, [&box] { return box.Problem(); });
  }
}

bool XKivRfcDetail::IsTabValid(const std::string& hostText) {
  {
    const FlagGuard holding = HoldReports();
    FollowEcp();
  }
  return TabOf::IsTabValid(hostText);
}

void XKivRfcDetail::ShowNewStudy() {
  txtPath.SetText({});
  ShowDns({});
  txtPollingInterval.SetText(kDefaultPollingInterval);
}

void XKivRfcDetail::ShowStoredStudy() {
  txtPath.SetText(SubRecord()->Path());
  ShowDns(Required(SubRecord()->DNs()));
  txtPollingInterval.SetText(std::to_string(Study()->PollingInterval()));
}

void XKivRfcDetail::ShowDns(const DnCollection& dns) {
  for (std::size_t row = 0; row < kRows; ++row) ShowRow(row, {}, {});
  std::size_t row = kFirstOfMultiple;
  for (const auto& dn : dns) {
    if (row == kRows) break;
    ShowRow(row++, dn->Dn(), WithoutExtension(dn->DataFile()));
  }
  FollowEcp();
}

void XKivRfcDetail::ShowRow(std::size_t row, const std::string& dn, const std::string& filename) {
  txtDirectoryNumber[row].SetText(dn);
  txtFilename[row].SetText(filename);
}

bool XKivRfcDetail::HasMultipleDns() const {
  return SubRecord()->Faf().F465;
}

/// Offers the rows that the ECP chosen by now can have. What was entered in a row that cannot be used any
/// more moves to one that can, as far as there is room.
void XKivRfcDetail::FollowEcp() {
  const bool multiple = HasMultipleDns();
  for (std::size_t row = 0; row < kRows; ++row) {
    const bool usable = (row != kSingleRow) == multiple;
    txtDirectoryNumber[row].SetEnabled(usable);
    txtFilename[row].SetEnabled(usable);
  }
  // The first row from 1 that is free for the single DN, or the first whose DN can be the single one.
  std::size_t row = kFirstOfMultiple;
  while (row < kRows && IsFilled(row) == multiple) ++row;
  const std::size_t from = multiple ? kSingleRow : row;
  const std::size_t to = multiple ? row : kSingleRow;
  if (row < kRows && IsFilled(from) && !IsFilled(to)) {
    ShowRow(to, txtDirectoryNumber[from].Text(), txtFilename[from].Text());
    ShowRow(from, {}, {});
  }
  ShowLeastInterval();
  ShowUnused();
}

/// Entries that find no room stay in sight, but a save leaves them out.
void XKivRfcDetail::ShowUnused() {
  std::size_t unused = 0;
  for (std::size_t row = 0; row < kRows; ++row) unused += IsFilled(row) && !IsTraced(row) ? 1 : 0;
  lblUnused.SetCaption(unused == 0 ? std::string()
                                   : std::to_string(unused) + (unused == 1 ? " DN is" : " DNs are") +
                                         " not stored: this ECP traces " +
                                         (HasMultipleDns() ? "DN 1 to 10." : "a single DN."));
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

void XKivRfcDetail::SaveData() {
  const FlagGuard holding = HoldReports();
  FollowEcp();
  CKivRfcData& data = *SubRecord();
  Study()->SetPollingInterval(NumberOr(txtPollingInterval.Text(), Study()->PollingInterval()));
  data.SetPath(txtPath.Text());
  data.SetMultipleDns(BoolToYN(HasMultipleDns()));
  data.SetDNs(std::make_shared<DnCollection>());
  for (std::size_t row = 0; row < kRows; ++row) {
    if (!IsTraced(row)) continue;
    data.AddDn(txtDirectoryNumber[row].Text(), txtFilename[row].Text() + std::string(kExtension));
  }
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
       Single(lblUnused),
       Form(
           {Field("Pollin&g interval:", {Single(txtPollingInterval), Text("seconds"), Single(lblInterval)})}),
       Stretch()});
}

}  // namespace kiv
