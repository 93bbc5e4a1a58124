#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/entity_list_view.h"
#include "host/drag_source.h"

namespace kiv {

/// What a drop list accepts.
enum class EntityType : std::int32_t { None = 0, Ecp = 1, RfcCell = 2, VcsCell = 3 };

/// By which column, and in which direction, a list is sorted.
struct SortSettings {
  int column = ui::ListView::kDefaultColumn;  ///< kUnsorted for the order of the collection
  ui::SortDirection direction = ui::SortDirection::Ascending;

  friend bool operator==(const SortSettings&, const SortSettings&) = default;
};

/// What the user is told who chose no cell.
inline constexpr const char* kNoCellText = "Please select at least one cell for the study.";

/// The list into which the user drags ECPs or cells from the host's configuration entity tree. It checks what
/// is dropped, says what is refused and why, and keeps what it accepted in a collection.
class XDDListView : public EntityListView {
 public:
  XDDListView(ui::Container* parent, std::string name);

  kiv::EntityType EntityType() const { return entityType_; }
  void SetEntityType(kiv::EntityType type) { entityType_ = type; }
  /// Limit of the drop rules; 0 switches it off.
  std::int32_t MaxRows() const { return maxRows_; }
  void SetMaxRows(std::int32_t maxRows) { maxRows_ = maxRows; }
  /// Whether a right click opens the menu with Remove, Remove All and Select All.
  bool UsePopupMenu() const { return !MenuItems().empty(); }
  void SetUsePopupMenu(bool use);
  SortSettings SortOptions() const { return {SortColumn(), Direction()}; }
  /// Raises error 5 for a column that the list does not have.
  void SetSortOptions(SortSettings settings) { SortBy(settings.column, settings.direction); }

  /// What is wrong with the collection as a whole, though no drop could make it so; empty when nothing is.
  std::string LimitFault() const;

  /// Accepts or refuses nodes as if they had been dropped.
  void DropNodes(const std::vector<host::DraggedNode>& nodes);
  void RemoveSelected();
  void RemoveAll();

  /// Called with what is dropped before the first of it is taken; what it returns lives until the last is.
  using DropPreparation = std::function<std::shared_ptr<void>(const std::vector<host::DraggedNode>& nodes)>;
  void SetDropPreparation(DropPreparation preparation) { preparation_ = std::move(preparation); }

  /// Raised for each entity that a drop added or the user removed.
  Signal<const std::shared_ptr<CEntity>&> EntityAdded;
  Signal<const std::shared_ptr<CEntity>&> EntityRemoved;

 private:
  bool OffersFormat(const ui::DragData& data);
  bool HasExpectedType(const host::DraggedNode& first) const;
  std::shared_ptr<CEntity> MakeEntity(const host::DraggedNode& node) const;
  bool MayAdd(const std::shared_ptr<CEntity>& entity) const;
  bool PassesVcsCellLimit(const CEntity& cell) const;
  bool PassesRfcCellCheck(const CEntity& cell) const;
  void Remove(const std::vector<std::shared_ptr<CEntity>>& entities);
  bool TakeIn(EntityCollection& collection, const std::shared_ptr<CEntity>& entity);
  void Change(const std::function<void(bool& changed)>& change);

  DropPreparation preparation_;
  std::optional<std::uint16_t> format_;  // of the tree's nodes, once a drag asked for it
  kiv::EntityType entityType_ = kiv::EntityType::None;
  std::int32_t maxRows_ = 0;
};

/// The lists of a page that take entities of the network.
std::vector<XDDListView*> DropListsOf(const ui::Container& page);

}  // namespace kiv
