#include "core/entities.h"

#include <charconv>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "core/conversions.h"
#include "core/entity_lists.h"
#include "core/kiv_study_ctls.h"

namespace kiv {

namespace {

constexpr std::string_view kAntennaWord = "Antenna:";
constexpr std::string_view kCarrierWord = "Carrier:";

void AppendNumber(std::string& text, std::int32_t number) {
  char digits[16];
  text.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
}

std::string KeyOf(std::string_view word, std::int32_t instanceId) {
  std::string key(word);
  AppendNumber(key, instanceId);
  return key;
}

std::string AntennaKey(std::int32_t instanceId, std::initializer_list<std::int32_t> path) {
  if (instanceId != 0) return KeyOf(kAntennaWord, instanceId);
  std::string key(kAntennaWord);
  for (const std::int32_t number : path) {
    if (key.size() > kAntennaWord.size()) key += '-';
    AppendNumber(key, number);
  }
  return key;
}

template <class Entity>
std::shared_ptr<Entity> MakeEntity(std::int32_t id, std::int32_t instanceId, std::int32_t systemId,
                                   std::int32_t ecpId, std::string key) {
  auto entity = std::make_shared<Entity>();
  entity->SetID(id);
  entity->SetInstanceID(instanceId);
  entity->SetSystemID(systemId);
  entity->SetEcpID(ecpId);
  entity->SetKey(std::move(key));
  return entity;
}

template <class Kind>
Kind& As(const std::shared_ptr<CEntity>& entity, const char* what) {
  auto* found = dynamic_cast<Kind*>(entity.get());
  if (!found) {
    throw Error(ErrorNumber::TypeMismatch, std::string("Type mismatch: the entity is not ") + what + ".");
  }
  return *found;
}

/// Only a key that is missing is removed, which raises the collection's error.
void RemoveUnlessPresent(const std::shared_ptr<AntennaCollection>& collection, const std::string& key) {
  if (!MKivStudyCtls::ExistsInCollection(collection, key)) collection->Remove(key);
}

}  // namespace

std::shared_ptr<CCell> MakeCell(std::int32_t studyId, std::int32_t instanceId, std::int32_t systemId,
                                std::int32_t ecpId, std::int32_t cellId) {
  auto cell = MakeEntity<CCell>(studyId, instanceId, systemId, ecpId, KeyOf("Cell:", instanceId));
  cell->SetCellID(cellId);
  return cell;
}

std::shared_ptr<CEcp> MakeEcp(std::int32_t studyId, std::int32_t instanceId, std::int32_t systemId,
                              std::int32_t ecpId) {
  return MakeEntity<CEcp>(studyId, instanceId, systemId, ecpId, KeyOf("Ecp:", instanceId));
}

CCell& AsCell(const std::shared_ptr<CEntity>& entity) {
  return As<CCell>(entity, "a cell");
}

CEcp& AsEcp(const std::shared_ptr<CEntity>& entity) {
  return As<CEcp>(entity, "an ECP");
}

void CCell::AddAntenna(std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId,
                       std::int32_t cellId, std::int32_t antennaId, bool selected) {
  AntennaCollection& antennas = Required(antennas_);
  std::string key = AntennaKey(instanceId, {systemId, ecpId, cellId, antennaId});
  auto antenna = MakeEntity<CAntenna>(ID(), instanceId, systemId, ecpId, key);
  antenna->SetCellID(cellId);
  antenna->SetAntennaID(antennaId);
  antenna->SetSelected(selected);
  antennas.AddNew(std::move(antenna), std::move(key));
}

void CCell::AddCarrier(std::int32_t instanceId, const std::string& systemId, const std::string& ecpId,
                       const std::string& cellId, const std::string& carrierId, bool selected) {
  AntennaCollection& carriers = Required(carriers_);
  std::string key = instanceId != 0
                        ? KeyOf(kCarrierWord, instanceId)
                        : std::string(kCarrierWord) + systemId + "-" + ecpId + "-" + cellId + "-" + carrierId;
  if (carriers.Contains(key)) return;
  auto carrier = MakeEntity<CAntenna>(ID(), instanceId, ToInt32(systemId), ToInt32(ecpId), key);
  carrier->SetCellID(ToInt32(cellId));
  carrier->SetCarrierID(ToInt32(carrierId));
  carrier->SetSelected(selected);
  carriers.AddNew(std::move(carrier), std::move(key));
}

void CCell::RemoveAntenna(const std::string& key) {
  RemoveUnlessPresent(antennas_, key);
}

void CCell::RemoveCarrier(const std::string& key) {
  RemoveUnlessPresent(carriers_, key);
}

bool CCell::InsertAntennas(std::int32_t listId) const {
  bool written = true;
  for (const auto& antenna : Required(antennas_)) {
    written &= MSQL::InsertAntennaRow(listId, antenna->Instance_Id(), antenna->SystemID(), antenna->EcpID(),
                                      antenna->CellID(), antenna->AntennaID(),
                                      MKivStudyCtls::BoolToYN(antenna->Selected()));
  }
  return written;
}

bool CCell::InsertCarriers(std::int32_t listId) const {
  bool written = true;
  for (const auto& carrier : Required(carriers_)) {
    written &= MSQL::InsertCarrierRow(listId, carrier->Instance_Id(), carrier->SystemID(), carrier->EcpID(),
                                      carrier->CellID(), carrier->CarrierID(),
                                      MKivStudyCtls::BoolToYN(carrier->Selected()));
  }
  return written;
}

}  // namespace kiv
