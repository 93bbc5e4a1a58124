#include "vcsa/cell_lookup.h"

#include <string>
#include <utility>

#include "core/entity_lists.h"
#include "core/msql.h"
#include "host/services.h"

namespace kiv {

namespace {

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

/// The stored lists are read by cell number alone, so a cell may have got those of its namesake on another
/// ECP as well.
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

bool IsCdma(const CCell& cell) {
  return cell.TechType().find("CDMA") != std::string::npos;
}

void CompleteCell(const CKivVcsData& data, CCell& cell) {
  cell.SetTechType(MSQL::FindCellTech(cell.InstanceID()));
  data.LookupAntenna(cell);
  if (!IsCdma(cell)) return;
  // A cell that has carriers already would not be given those of its CGSA.
  const auto configured = WithoutLists(cell);
  data.LookupCarrier(*configured);
  AddOwnCarriers(cell, Required(configured->Carriers()));
}

namespace {

std::shared_ptr<CCell> Completed(const CKivVcsData& data, const CCell& stored) {
  auto cell = WithOwnOnly(stored);
  CompleteCell(data, *cell);
  return cell;
}

}  // namespace

std::shared_ptr<EntityCollection> CompletedCells(const CKivVcsData& data) {
  auto completed = std::make_shared<EntityCollection>();
  bool asks = true;
  bool reported = false;
  const EntityCollection& stored = Required(data.Cells());
  MSQL::Announcer ahead([&, next = stored.begin()](std::vector<host::Announcement>& questions) mutable {
    if (next == stored.end()) return false;
    MSQL::AddConfigQuestions(AsCell(*next), questions);
    ++next;
    return true;
  });
  for (const auto& entity : stored) {
    std::shared_ptr<CEntity> cell = entity;
    try {
      if (asks) {
        ahead.BeginRound();
        cell = Completed(data, AsCell(entity));
      }
    } catch (const Error& error) {
      if (!std::exchange(reported, true)) host::TheErrorReporter().ReportError();
      // Who does not answer for one cell would keep the user waiting for each of the others.
      asks = dynamic_cast<const host::DatabaseError*>(&error) == nullptr;
    }
    completed->Add(std::move(cell), entity->Key());
  }
  return completed;
}

}  // namespace kiv
