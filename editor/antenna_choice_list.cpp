#include "editor/antenna_choice_list.h"

#include <utility>

namespace kiv {

namespace {

bool OfSameCell(const CAntenna& left, const CAntenna& right) {
  return left.SharesEcpWith(right) && left.CellID() == right.CellID();
}

}  // namespace

AntennaChoiceList::AntennaChoiceList(ui::Container* parent, std::string name)
    : XDDListView(parent, std::move(name)) {
  SetCheckboxes(true);
  CheckBoxClicked.Connect([this](std::size_t row) { MoveChoice(row); });
}

void AntennaChoiceList::MoveChoice(std::size_t row) {
  auto* chosen = dynamic_cast<CAntenna*>(Shown().at(row).get());
  if (!chosen) return;
  const bool select = !chosen->Selected();
  for (const auto& entity : Shown()) {
    auto* antenna = dynamic_cast<CAntenna*>(entity.get());
    if (antenna && OfSameCell(*antenna, *chosen)) antenna->SetSelected(false);
  }
  chosen->SetSelected(select);
  const auto selection = SelectedRows();
  Redraw();
  SetSelectedRows(selection);
  CollectionChanged.Raise();
}

}  // namespace kiv
