#include "vcsa/detail_tab.h"

#include <algorithm>
#include <utility>

#include "editor/kiv_study_ctls.h"
#include "editor/number_checks.h"
#include "vcsa/cell_lookup.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

constexpr std::int32_t kDefaultPollingInterval = 60;
const NumberRange kPollingInterval = {"Polling Interval", 1, 300, "seconds"};

/// Number of categories, from A, that an entry of the shortcut list checks; the number is its item data.
constexpr std::int32_t kUpToF = 6;
constexpr std::int32_t kUpToM = 13;
const ui::ListItem kUpToFEntry = {"All Events AMPS/TDMA (A-F)", kUpToF};

EntityColumn NumberColumn(const char* caption, std::int32_t (CAntenna::*number)() const) {
  return {
      {caption, 8, ui::Alignment::Right, ui::ListColumn::Content::Number},
      [number](const CEntity& entity) { return Variant((dynamic_cast<const CAntenna&>(entity).*number)()); }};
}

/// Gives a list the antennas or carriers of every cell.
void Show(EntityListView& list, const EntityCollection& cells,
          const std::shared_ptr<AntennaCollection>& (CCell::*entries)() const) {
  auto all = std::make_shared<EntityCollection>();
  for (const auto& entity : cells) {
    for (const auto& entry : Required((AsCell(entity).*entries)())) {
      if (!all->Contains(entry->Key())) all->Add(entry, entry->Key());
    }
  }
  list.SetTheCollection(std::move(all));
  list.Display();
}

}  // namespace

XKivVcsDetail::XKivVcsDetail()
    : TabOf(kClassName, "Detail"),
      fraEvents(this, "fraEvents"),
      cboEvent(&fraEvents, "cboEvent"),
      chkEvent(&fraEvents, "chkEvent"),
      fraAntennas(this, "fraAntennas"),
      dlvwAntenna(&fraAntennas, "dlvwAntenna"),
      fraCarriers(this, "fraCarriers"),
      dlvwCarrier(&fraCarriers, "dlvwCarrier"),
      txtSingleDn(this, "txtSingleDn"),
      txtPollingInterval(this, "txtPollingInterval"),
      chkDirectionalSetup(this, "chkDirectionalSetup"),
      chkCarrierData(this, "chkCarrierData") {
  fraEvents.SetCaption("Event Categories");
  for (std::size_t category = 0; category < chkEvent.Size(); ++category) {
    chkEvent[category].SetCaption(std::string(1, static_cast<char>('A' + category)));
  }
  fraAntennas.SetCaption("Antennas (one of each cell)");
  fraCarriers.SetCaption("Carriers (one of each cell)");
  const auto columns = [](EntityColumn last) {
    return std::vector<EntityColumn>{SystemColumn("System"), EcpColumn("ECP"),
                                     NumberColumn("Cell", &CAntenna::CellID), std::move(last)};
  };
  dlvwAntenna.AddColumns(columns(NumberColumn("Antenna", &CAntenna::AntennaID)));
  dlvwCarrier.AddColumns(columns(NumberColumn("Carrier", &CAntenna::CarrierID)));
  chkDirectionalSetup.SetCaption("Collect directional set&up data");
  chkCarrierData.SetCaption("Collect carrier d&ata");

  for (std::size_t category = 0; category < chkEvent.Size(); ++category) {
    auto& event = Bind(chkEvent[category], EventPlace(category));
    if (category == 0) event.Checked(AnyEvent());
    chkEvent[category].Changed.Connect([this] {
      if (!Filling()) ShowEventChoice();
    });
  }
  Bind(txtSingleDn, At(&CKivVcsData::SingleDn, &CKivVcsData::SetSingleDn));
  Bind(chkDirectionalSetup, At(&CKivVcsData::DirectionalSetup, &CKivVcsData::SetDirectionalSetup));
  Bind(chkCarrierData, At(&CKivVcsData::CarrierData, &CKivVcsData::SetCarrierData));
  Bind(txtPollingInterval, At(&CKivStudyData::PollingInterval, &CKivStudyData::SetPollingInterval))
      .Default(std::to_string(kDefaultPollingInterval))
      .Checked(NumberChecks(txtPollingInterval, kPollingInterval));

  cboEvent.Changed.Connect([this] { ChooseEvents(); });
  for (AntennaChoiceList* list : {&dlvwAntenna, &dlvwCarrier}) {
    list->CollectionChanged.Connect([this] { ReportChange(); });
  }
}

void XKivVcsDetail::PrepareControls() {
  cboEvent.SetItems({kUpToFEntry});
}

Place<std::string> XKivVcsDetail::EventPlace(std::size_t category) {
  return {[this, category] { return SubRecord()->Event(category); },
          [this, category](std::string value) { SubRecord()->SetEvent(category, std::move(value)); },
          CKivVcsData::EventField(category)};
}

CheckList XKivVcsDetail::AnyEvent() {
  CheckList checks;
  checks.Add(
      chkEvent[0],
      [this] {
        return std::any_of(chkEvent.begin(), chkEvent.end(), [](const auto& box) { return box.Checked(); });
      },
      "At least one Event Category must be selected.");
  return checks;
}

/// Shows what belongs to the cells as they are now; choices live in the antennas and carriers themselves.
void XKivVcsDetail::ShowEntities() {
  const EntityCollection& cells = Required(SubRecord()->Cells());
  Show(dlvwAntenna, cells, &CCell::Antennas);
  Show(dlvwCarrier, cells, &CCell::Carriers);

  const bool hasCdma =
      std::any_of(cells.begin(), cells.end(), [](const auto& entity) { return IsCdma(AsCell(entity)); });
  const FlagGuard filling = HoldReports();
  ui::ItemList shortcuts = {kUpToFEntry};
  if (hasCdma) shortcuts.push_back({"All Events AMPS/CDMA (A-M)", kUpToM});
  cboEvent.SetItems(std::move(shortcuts));
  ShowEventChoice();
}

void XKivVcsDetail::ChooseEvents() {
  if (Filling() || cboEvent.ListIndex() == ui::kNoSelection) return;
  {
    const FlagGuard filling = HoldReports();
    const auto upTo =
        static_cast<std::size_t>(cboEvent.Items()[static_cast<std::size_t>(cboEvent.ListIndex())].data);
    for (std::size_t category = 0; category < chkEvent.Size(); ++category) {
      chkEvent[category].SetChecked(category < upTo);
    }
  }
  ReportChange();
}

/// The shortcut that the boxes amount to, or none; so a shortcut can always be chosen anew.
void XKivVcsDetail::ShowEventChoice() {
  const FlagGuard filling = HoldReports();
  const auto firstClear =
      std::find_if(chkEvent.begin(), chkEvent.end(), [](const auto& box) { return !box.Checked(); });
  const bool isRun = std::none_of(firstClear, chkEvent.end(), [](const auto& box) { return box.Checked(); });
  const auto length = static_cast<std::int32_t>(firstClear - chkEvent.begin());
  cboEvent.SetListIndex(isRun ? FindItemDataIndex(cboEvent.Items(), length) : ui::kNoSelection);
}

ui::LayoutItem XKivVcsDetail::Layout() {
  using namespace ui;
  const auto boxes = [this](std::size_t from, std::size_t to) {
    std::vector<LayoutItem> items;
    for (std::size_t category = from; category < to; ++category) items.push_back(Single(chkEvent[category]));
    items.push_back(Stretch());
    return Row(std::move(items));
  };
  return Column({Group(fraEvents, {Form({Field("Se&lect:", {Single(cboEvent), Stretch()})}), boxes(0, kUpToF),
                                   boxes(kUpToF, kUpToM)}),
                 Row({Group(fraAntennas, {Single(dlvwAntenna)}), Group(fraCarriers, {Single(dlvwCarrier)})}),
                 Form({Field("S&ingle DN:", {Single(txtSingleDn.edit), Stretch()}),
                       Field("P&olling interval:", {Single(txtPollingInterval), Text("seconds")})}),
                 Row({Single(chkDirectionalSetup), Single(chkCarrierData), Stretch()})});
}

}  // namespace kiv
