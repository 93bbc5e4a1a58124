#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/variant.h"
#include "core/keyed_collection.h"

/// The pieces of the network that a study names.
namespace kiv {

/// What every piece of the network has: its place in the network, and its key in the collection that holds
/// it.
class CEntity : public Object {
 public:
  /// Identifier of the owning study.
  std::int32_t ID() const { return id_; }
  void SetID(std::int32_t id) { id_ = id; }
  /// Configuration instance number; 0 when unknown.
  std::int32_t InstanceID() const { return instanceId_; }
  void SetInstanceID(std::int32_t instanceId) { instanceId_ = instanceId; }
  std::int32_t SystemID() const { return systemId_; }
  void SetSystemID(std::int32_t systemId) { systemId_ = systemId; }
  std::int32_t EcpID() const { return ecpId_; }
  void SetEcpID(std::int32_t ecpId) { ecpId_ = ecpId; }
  const std::string& Key() const { return key_; }
  void SetKey(std::string key) { key_ = std::move(key); }

  /// Whether both belong to the same ECP.
  bool SharesEcpWith(const CEntity& other) const {
    return systemId_ == other.systemId_ && ecpId_ == other.ecpId_;
  }

 private:
  std::int32_t id_ = 0;
  std::int32_t instanceId_ = 0;
  std::int32_t systemId_ = 0;
  std::int32_t ecpId_ = 0;
  std::string key_;
};

using EntityCollection = KeyedCollection<CEntity>;

/// One ECP, a switch processor.
class CEcp : public CEntity {};

/// One antenna of a cell, or one of its carriers.
class CAntenna : public CEntity {
 public:
  /// Configuration instance number under this class's own name.
  std::int32_t Instance_Id() const { return InstanceID(); }
  void SetInstance_Id(std::int32_t instanceId) { SetInstanceID(instanceId); }
  std::int32_t CellID() const { return cellId_; }
  void SetCellID(std::int32_t cellId) { cellId_ = cellId; }
  /// 0 for a carrier.
  std::int32_t AntennaID() const { return antennaId_; }
  void SetAntennaID(std::int32_t antennaId) { antennaId_ = antennaId; }
  /// 0 for an antenna.
  std::int32_t CarrierID() const { return carrierId_; }
  void SetCarrierID(std::int32_t carrierId) { carrierId_ = carrierId; }
  /// Whether the user chose it for the study.
  bool Selected() const { return selected_; }
  void SetSelected(bool selected) { selected_ = selected; }

 private:
  std::int32_t cellId_ = 0;
  std::int32_t antennaId_ = 0;
  std::int32_t carrierId_ = 0;
  bool selected_ = false;
};

using AntennaCollection = KeyedCollection<CAntenna>;

/// One cell of one ECP, with its antennas and carriers in the order of adding.
class CCell : public CEntity {
 public:
  std::int32_t CellID() const { return cellId_; }
  void SetCellID(std::int32_t cellId) { cellId_ = cellId; }
  /// The cell's technology as the configuration tells it.
  const std::string& TechType() const { return techType_; }
  void SetTechType(std::string techType) { techType_ = std::move(techType); }

  /// Unset after a clear.
  const std::shared_ptr<AntennaCollection>& Antennas() const { return antennas_; }
  const std::shared_ptr<AntennaCollection>& Carriers() const { return carriers_; }

  /// Adds an antenna unless its key is there already. Raises error 91 after a clear.
  void AddAntenna(std::int32_t instanceId, std::int32_t systemId, std::int32_t ecpId, std::int32_t cellId,
                  std::int32_t antennaId, bool selected);
  /// Adds a carrier unless its key, made of the texts as they are, is there already. Raises error 13 for a
  /// text that is no number and error 91 after a clear.
  void AddCarrier(std::int32_t instanceId, const std::string& systemId, const std::string& ecpId,
                  const std::string& cellId, const std::string& carrierId, bool selected);

  /// An antenna that is there stays: callers clear and fill lists anew, and a key that is not there raises
  /// error 5. RemoveCarrier is alike.
  void RemoveAntenna(const std::string& key);
  void RemoveCarrier(const std::string& key);

  /// Leaves the list unset until the cell is made anew.
  void ClearAntennas() { antennas_.reset(); }
  void ClearCarriers() { carriers_.reset(); }

  /// Stores the list under an identifier, row by row in its order; false when a row was not written.
  bool InsertAntennas(std::int32_t listId) const;
  bool InsertCarriers(std::int32_t listId) const;

 private:
  std::int32_t cellId_ = 0;
  std::string techType_;
  std::shared_ptr<AntennaCollection> antennas_ = std::make_shared<AntennaCollection>();
  std::shared_ptr<AntennaCollection> carriers_ = std::make_shared<AntennaCollection>();
};

/// A cell or an ECP of a study under its key, `Cell:` or `Ecp:` with the instance number.
std::shared_ptr<CCell> MakeCell(std::int32_t studyId, std::int32_t instanceId, std::int32_t systemId,
                                std::int32_t ecpId, std::int32_t cellId);
std::shared_ptr<CEcp> MakeEcp(std::int32_t studyId, std::int32_t instanceId, std::int32_t systemId,
                              std::int32_t ecpId);

/// The entity as a cell. Raises error 13 when it is none.
CCell& AsCell(const std::shared_ptr<CEntity>& entity);
/// The entity as an ECP. Raises error 13 when it is none.
CEcp& AsEcp(const std::shared_ptr<CEntity>& entity);

}  // namespace kiv
