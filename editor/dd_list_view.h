#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/entities.h"
#include "host/drag_source.h"
#include "ui/list_view.h"

namespace kiv {

/// What a drop list accepts.
enum class EntityType : std::int32_t { None = 0, Ecp = 1, RfcCell = 2, VcsCell = 3 };

/// A column of a drop list: its look, and the value of an entity that it shows.
struct EntityColumn {
  ui::ListColumn look;
  std::function<Variant(const CEntity&)> value;
};

/// Columns of the numbers on the way to an entity.
EntityColumn SystemColumn(std::string caption);
EntityColumn EcpColumn(std::string caption);
/// For lists of cells only.
EntityColumn CellColumn(std::string caption);

/// The list into which the user drags ECPs or cells from the host's configuration entity tree. It checks what
/// is dropped, says what is refused and why, and keeps what it accepted in a collection.
///
/// In a list with check boxes the entities are antennas or carriers, of which a cell has at most one
/// selected: checking another moves the choice.
class XDDListView : public ui::ListView {
 public:
  XDDListView(ui::Container* parent, std::string name);

  kiv::EntityType EntityType() const { return entityType_; }
  void SetEntityType(kiv::EntityType type) { entityType_ = type; }
  /// Limit of the drop rules; 0 switches it off.
  std::int32_t MaxRows() const { return maxRows_; }
  void SetMaxRows(std::int32_t maxRows) { maxRows_ = maxRows; }
  /// The accepted entities by key. Setting it shows nothing yet.
  const std::shared_ptr<EntityCollection>& TheCollection() const { return collection_; }
  void SetTheCollection(std::shared_ptr<EntityCollection> collection) { collection_ = std::move(collection); }
  /// Whether a right click opens the menu with Remove, Remove All and Select All.
  void SetUsePopupMenu(bool use);

  /// Replaces the columns.
  void AddColumns(std::vector<EntityColumn> columns);
  /// Shows the collection as it is now.
  void Display();
  /// Shows nothing; the collection stays.
  void ClearDisplay();

  /// Accepts or refuses nodes as if they had been dropped.
  void DropNodes(const std::vector<host::DraggedNode>& nodes);
  void RemoveSelected();
  void RemoveAll();

  /// Raised for each entity that a drop added or the user removed.
  Signal<const std::shared_ptr<CEntity>&> EntityAdded;
  Signal<const std::shared_ptr<CEntity>&> EntityRemoved;
  /// Raised once after a drop or a removal changed the collection, and after a choice moved.
  Signal<> CollectionChanged;

 private:
  class Rows;

  std::uint16_t TreeFormat();
  bool HasExpectedType(const host::DraggedNode& first) const;
  std::shared_ptr<CEntity> MakeEntity(const host::DraggedNode& node) const;
  bool MayAdd(const std::shared_ptr<CEntity>& entity) const;
  bool PassesVcsCellLimit(const CEntity& cell) const;
  bool PassesRfcCellCheck(const CEntity& cell) const;
  void Remove(const std::vector<std::shared_ptr<CEntity>>& entities);
  void MoveChoice(std::size_t row);

  std::optional<std::uint16_t> format_;  // unset until the host gave a drag source
  kiv::EntityType entityType_ = kiv::EntityType::None;
  std::int32_t maxRows_ = 0;
  std::shared_ptr<EntityCollection> collection_;
  std::shared_ptr<const std::vector<EntityColumn>> columns_;
  std::shared_ptr<Rows> rows_;
};

}  // namespace kiv
