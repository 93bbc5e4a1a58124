#include "vcsa/general_tab.h"

#include <utility>

#include "core/entity_lists.h"
#include "core/numeric_text.h"
#include "vcsa/cell_lookup.h"

namespace kiv {

namespace {

constexpr std::int32_t kCellsOfOneEcp = 10;
constexpr std::int32_t kQuarterHour = 15;
constexpr MinutesField kMinutes = {kQuarterHour, 480, 30, host::remembered::kVcsDuration};
constexpr MinutesField kDelay = {1, 120, 15, host::remembered::kVcsRetrieveDelay};
constexpr DataFileNames kDataFiles = {".vcs", "v$YY$MM$DD$HH$MI", host::remembered::kVcsFilename};

CheckList QuarterHours(ui::TextBox& box, const char* subject) {
  const auto quarters = [](std::int32_t count) { return std::to_string(count * kQuarterHour); };
  CheckList checks;
  checks.Add(
      box, [&box] { return IsNumeric(box.Text()); }, NotNumericText(subject));
  checks.Add(
      box,
      [&box] {
        return IsNumberBetween(box.Text(), kMinutes.low, kMinutes.high) &&
               *ParseNumber(box.Text()) % kQuarterHour == 0;
      },
      RangeText({subject, kMinutes.low, kMinutes.high, "minutes"}) +
          " and \r\nexpressed in increments of quarter hours (" + quarters(1) + ", " + quarters(2) + ", " +
          quarters(3) + ",etc).");
  return checks;
}

CheckList AtLeastOneCell(XDDListView& list) {
  CheckList checks;
  checks.Add(
      list, [&list] { return Required(list.TheCollection()).Count() > 0; }, kNoCellText);
  return checks;
}

}  // namespace

XKivVcsGen::XKivVcsGen()
    : GeneralTabOf(kClassName, WhenEmpty::Show, Remembers::WhenValid),
      fraCells(this, "fraCells"),
      dlvwCell(&fraCells, "dlvwCell"),
      XDest(this, "XDest"),
      txtDuration(this, "txtDuration"),
      txtRetrieveDelay(this, "txtRetrieveDelay") {
  fraCells.SetCaption("Cells (drag them here from the network tree)");
  dlvwCell.SetEntityType(EntityType::VcsCell);
  dlvwCell.SetMaxRows(kCellsOfOneEcp);
  dlvwCell.SetMultiSelect(true);
  dlvwCell.SetUsePopupMenu(true);
  dlvwCell.AddColumns({SystemColumn("System"),
                       EcpColumn("ECP"),
                       CellColumn("Cell"),
                       {{"Technology", 14}, [](const CEntity& cell) {
                          return Variant(dynamic_cast<const CCell&>(cell).TechType());
                        }}});
  dlvwCell.SetDropPreparation([this](const std::vector<host::DraggedNode>& nodes) {
    auto announcer = std::make_shared<MSQL::Announcer>(
        [&nodes, next = std::size_t{0}](std::vector<host::Announcement>& questions) mutable {
          if (next == nodes.size()) return false;
          const host::DraggedNode& node = nodes[next++];
          const auto cell = MakeCell(0, node.instanceId, node.systemId, node.ecpId, node.cellId);
          MSQL::AddConfigQuestions(*cell, questions);
          return true;
        });
    dropped_ = announcer;
    return announcer;
  });
  dlvwCell.EntityAdded.Connect([this](const std::shared_ptr<CEntity>& cell) {
    if (const auto announcer = dropped_.lock()) announcer->BeginRound();
    cell->SetID(Required(Study()).ID());
    CompleteCell(*SubRecord(), AsCell(cell));
  });

  const PageField& duration = BindDuration(txtDuration, kMinutes, QuarterHours(txtDuration, kDuration));
  const PageField& delay = BindRetrieveDelay(txtRetrieveDelay, kDelay);
  const PageField& dataFile = BindDataFile(XDest, kDataFiles);
  const PageField& cells =
      Bind(dlvwCell, At(&CKivVcsData::Cells, &CKivVcsData::SetCells)).Checked(AtLeastOneCell(dlvwCell));
  CheckInOrder({&cells, &dataFile, &duration, &delay});
}

void XKivVcsGen::ShowStoredStudy() {
  SubRecord()->SetCells(CompletedCells(*SubRecord()));
  dlvwCell.SetTheCollection(SubRecord()->Cells());
  dlvwCell.Display();
}

ui::LayoutItem XKivVcsGen::Layout() {
  using namespace ui;
  return Column({Group(fraCells, {Single(dlvwCell)}), XDest.Layout(),
                 Form({DurationRow(txtDuration), RetrieveDelayRow(txtRetrieveDelay)})});
}

}  // namespace kiv
