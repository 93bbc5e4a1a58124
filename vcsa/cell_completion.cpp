#include "vcsa/cell_completion.h"

#include <algorithm>
#include <utility>

#include "core/entity_lists.h"
#include "vcsa/technology.h"

namespace kiv {

namespace {

/// The antennas or carriers that really are the cell's own.
bool HoldsOnlyOwn(const CCell& cell, const AntennaCollection& entries) {
  return std::all_of(entries.begin(), entries.end(),
                     [&cell](const auto& entry) { return entry->SharesEcpWith(cell); });
}

std::shared_ptr<CCell> WithoutLists(const CCell& cell) {
  auto copy = MakeCell(cell.ID(), cell.InstanceID(), cell.SystemID(), cell.EcpID(), cell.CellID());
  copy->SetTechType(cell.TechType());
  return copy;
}

/// Adds the carriers of a cell's own that it does not have yet.
void AddOwnCarriers(CCell& cell, const AntennaCollection& carriers) {
  for (const auto& carrier : carriers) {
    if (!carrier->SharesEcpWith(cell)) continue;
    cell.AddCarrier(carrier->Instance_Id(), std::to_string(carrier->SystemID()),
                    std::to_string(carrier->EcpID()), std::to_string(carrier->CellID()),
                    std::to_string(carrier->CarrierID()), carrier->Selected());
  }
}

std::shared_ptr<CCell> WithOwnOnly(const CCell& cell) {
  auto own = WithoutLists(cell);
  for (const auto& antenna : Required(cell.Antennas())) {
    if (!antenna->SharesEcpWith(cell)) continue;
    own->AddAntenna(antenna->Instance_Id(), antenna->SystemID(), antenna->EcpID(), antenna->CellID(),
                    antenna->AntennaID(), antenna->Selected());
  }
  AddOwnCarriers(*own, Required(cell.Carriers()));
  return own;
}

}  // namespace

void CompleteCell(const CKivVcsData& study, CCell& cell) {
  cell.SetTechType(MSQL::FindCellTech(cell.InstanceID()));
  study.LookupAntenna(cell);
  if (!IsCdma(cell)) return;
  // A cell that has carriers already would not be given those of its CGSA.
  const auto configured = WithoutLists(cell);
  study.LookupCarrier(*configured);
  AddOwnCarriers(cell, Required(configured->Carriers()));
}

void CompleteStoredCells(CKivVcsData& study) {
  const EntityCollection& stored = Required(study.Cells());
  const bool mixed = std::any_of(stored.begin(), stored.end(), [](const auto& entity) {
    const CCell& cell = AsCell(entity);
    return !HoldsOnlyOwn(cell, Required(cell.Antennas())) || !HoldsOnlyOwn(cell, Required(cell.Carriers()));
  });
  if (mixed) {
    auto own = std::make_shared<EntityCollection>();
    for (const auto& entity : stored) own->Add(WithOwnOnly(AsCell(entity)), entity->Key());
    study.SetCells(std::move(own));
  }
  for (const auto& entity : *study.Cells()) CompleteCell(study, AsCell(entity));
}

}  // namespace kiv
