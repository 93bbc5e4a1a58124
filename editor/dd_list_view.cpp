#include "editor/dd_list_view.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "base/ascii.h"
#include "editor/check_list.h"
#include "host/constants.h"
#include "host/services.h"

namespace kiv {

namespace {

/// The type word of an entity's key, in lower case and as messages write it.
struct TypeWord {
  std::string_view inKey;
  const char* inMessage;
};

TypeWord WordOf(EntityType type) {
  switch (type) {
    case EntityType::Ecp: return {"ecp", "ECP"};
    case EntityType::RfcCell:
    case EntityType::VcsCell: return {"cell", "Cell"};
    default: return {"", "Unknown"};
  }
}

/// Numbers on the way to an entity, such as 1-2-37.
std::string PathText(const CEntity& entity) {
  std::string text = std::to_string(entity.SystemID()) + "-" + std::to_string(entity.EcpID());
  if (const auto* cell = dynamic_cast<const CCell*>(&entity)) text += "-" + std::to_string(cell->CellID());
  return text;
}

}  // namespace

XDDListView::XDDListView(ui::Container* parent, std::string name) : EntityListView(parent, std::move(name)) {
  if (const auto& images = host::CurrentServices().images) {
    SetSortImages({images->Find(host::image::kSortAscending), images->Find(host::image::kSortDescending)});
  }
  SetDropRule([this](const ui::DragData& data) { return OffersFormat(data); });
  Dropped.Connect([this](const ui::DragData&) { DropNodes(host::TheDragSource().DraggedNodes()); });
  MenuItemChosen.Connect([this](std::size_t item) {
    if (item == host::menu::kRemove) RemoveSelected();
    if (item == host::menu::kRemoveAll) RemoveAll();
    if (item == host::menu::kSelectAll) {
      std::vector<std::size_t> every(RowCount());
      for (std::size_t row = 0; row < every.size(); ++row) every[row] = row;
      SetSelectedRows(std::move(every));
    }
  });
  DeletePressed.Connect([this] {
    if (!MenuItems().empty()) RemoveSelected();
  });
}

/// A list can be made without a host, which is asked for its format by the first drag.
bool XDDListView::OffersFormat(const ui::DragData& data) {
  if (!format_) format_ = host::TheDragSource().RegisterFormat(host::kConfigEntityTreeFormat);
  return std::find(data.formats.begin(), data.formats.end(), *format_) != data.formats.end();
}

void XDDListView::SetUsePopupMenu(bool use) {
  SetMenuItems(use ? std::vector<std::string>{"&Remove", "Remove &All", "&Select All"}
                   : std::vector<std::string>{});
}

bool XDDListView::HasExpectedType(const host::DraggedNode& first) const {
  constexpr std::size_t kLeastWord = 2;  // the colon stands at the third character or later
  const std::size_t colon = first.key.find(':');
  if (colon == std::string::npos || colon < kLeastWord) return false;
  return AsciiLower(first.key.substr(0, colon)) == WordOf(entityType_).inKey;
}

std::shared_ptr<CEntity> XDDListView::MakeEntity(const host::DraggedNode& node) const {
  constexpr std::int32_t kNoStudyYet = 0;
  if (entityType_ == EntityType::Ecp) return MakeEcp(kNoStudyYet, node.instanceId, node.systemId, node.ecpId);
  return MakeCell(kNoStudyYet, node.instanceId, node.systemId, node.ecpId, node.cellId);
}

void XDDListView::DropNodes(const std::vector<host::DraggedNode>& nodes) {
  if (nodes.empty()) return;
  const char* word = WordOf(entityType_).inMessage;
  if (!HasExpectedType(nodes.front())) {
    host::ShowMessage(std::string("You have dropped the wrong element type. \r\nExpected element type: ") +
                      word);
    return;
  }
  const auto collection = TheCollection();  // a handler may set another one
  const auto prepared = preparation_ ? preparation_(nodes) : nullptr;
  Change([&](bool& changed) {
    for (const host::DraggedNode& node : nodes) {
      const auto entity = MakeEntity(node);
      if (Required(collection).Contains(entity->Key())) {
        host::ShowMessage(std::string(word) + " " + PathText(*entity) +
                          " is already in the list and will not be added.");
      } else if (MayAdd(entity)) {
        changed |= TakeIn(*collection, entity);
      } else if (entityType_ != EntityType::Ecp) {
        break;  // a limit on cells ends the drop
      }
    }
  });
}

/// Whether the entity is there after all who listen were told of it.
bool XDDListView::TakeIn(EntityCollection& collection, const std::shared_ptr<CEntity>& entity) {
  collection.Add(entity);
  try {
    EntityAdded.Raise(entity);
  } catch (...) {
    if (collection.Contains(entity->Key())) collection.Remove(entity->Key());  // half an entity is none
    throw;
  }
  return collection.Contains(entity->Key());
}

/// Changes the collection. The list then shows what came of it and its host is told, also of a change that
/// failed half-way.
void XDDListView::Change(const std::function<void(bool& changed)>& change) {
  bool changed = false;
  const auto show = [&] {
    Display();
    if (changed) CollectionChanged.Raise();
  };
  try {
    change(changed);
  } catch (...) {
    show();
    throw;
  }
  show();
}

bool XDDListView::MayAdd(const std::shared_ptr<CEntity>& entity) const {
  if (maxRows_ == 0) return true;
  if (entityType_ == EntityType::VcsCell) return PassesVcsCellLimit(*entity);
  if (entityType_ == EntityType::RfcCell) return PassesRfcCellCheck(*entity);
  if (TheCollection()->Count() < maxRows_) return true;
  host::ShowMessage("You have attempted to add more than " + std::to_string(maxRows_) +
                    " ECP.\r\nRF Call Trace studies must be initiated from a sinlge ECP.\r\n"
                    "The ECP has not been added to the list.");
  return false;
}

bool XDDListView::PassesVcsCellLimit(const CEntity& cell) const {
  const auto ofSameEcp =
      std::count_if(TheCollection()->begin(), TheCollection()->end(),
                    [&cell](const std::shared_ptr<CEntity>& other) { return other->SharesEcpWith(cell); });
  if (ofSameEcp < maxRows_) return true;
  const std::string limit = std::to_string(maxRows_);
  host::ShowMessage("You have attempted to drop more than " + limit + " cells from ECP " +
                    std::to_string(cell.EcpID()) +
                    "\r\nVCSA engineering guide lines recommend that no more than " + limit +
                    " cells \r\nfrom the same ECP be studied at the same time. The cells \r\n"
                    "have not been added to the list.");
  return false;
}

/// Looks at the cells of the list together with the new one; as many as the limit are too many already.
bool XDDListView::PassesRfcCellCheck(const CEntity& cell) const {
  const std::string limit = std::to_string(maxRows_);
  if (TheCollection()->Count() + 1 >= maxRows_) {
    host::ShowMessage(
        "You have attempted to drop more than " + limit + " cells for this study.\r\nNo more than " + limit +
        " cells can be studied at the same time. \r\nThe cells have not been added to the list.");
    return false;
  }
  const bool sameEcp =
      std::all_of(TheCollection()->begin(), TheCollection()->end(),
                  [&cell](const std::shared_ptr<CEntity>& other) { return other->SharesEcpWith(cell); });
  if (!sameEcp) {
    host::ShowMessage(
        "All cells for a RF Call Trace study must belong to the same ECP.\r\n"
        "The cells have not been added to the list.");
  }
  return sameEcp;
}

std::string XDDListView::LimitFault() const {
  const EntityCollection& entities = Required(TheCollection());
  if (maxRows_ == 0 || entities.Count() == 0) return {};
  const std::string limit = std::to_string(maxRows_);
  std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> counts;  // of each ECP
  for (const auto& entity : entities) ++counts[{entity->SystemID(), entity->EcpID()}];
  switch (entityType_) {
    case EntityType::Ecp:
      return entities.Count() <= maxRows_ ? std::string() : "No more than " + limit + " ECP can be studied";
    case EntityType::RfcCell:
      if (entities.Count() >= maxRows_) return "Only fewer than " + limit + " cells can be studied";
      return counts.size() == 1 ? std::string() : "All cells must belong to the same ECP";
    case EntityType::VcsCell: {
      const auto tooMany =
          std::ranges::find_if(counts, [this](const auto& ecp) { return ecp.second > maxRows_; });
      if (tooMany == counts.end()) return {};
      return "No more than " + limit + " cells of one ECP can be studied; the study has " +
             std::to_string(tooMany->second) + " of ECP " + std::to_string(tooMany->first.second);
    }
    default: return {};
  }
}

std::vector<XDDListView*> DropListsOf(const ui::Container& page) {
  std::vector<XDDListView*> lists;
  for (ui::Control* child : page.Children()) {
    auto* list = dynamic_cast<XDDListView*>(child);
    if (list && list->EntityType() != EntityType::None) lists.push_back(list);
    if (const auto* inner = dynamic_cast<const ui::Container*>(child)) {
      const auto deeper = DropListsOf(*inner);
      lists.insert(lists.end(), deeper.begin(), deeper.end());
    }
  }
  return lists;
}

void XDDListView::RemoveSelected() {
  std::vector<std::shared_ptr<CEntity>> entities;
  for (const std::size_t row : SelectedRows()) entities.push_back(Shown()[row]);
  Remove(entities);
}

void XDDListView::RemoveAll() {
  Remove(std::vector(Shown()));
}

void XDDListView::Remove(const std::vector<std::shared_ptr<CEntity>>& entities) {
  if (entities.empty()) return;
  const auto collection = TheCollection();
  Change([&](bool& changed) {
    for (const auto& shown : entities) {
      // A collection that was set since need not have what the list still shows.
      if (!Required(collection).Contains(shown->Key())) continue;
      const auto entity = collection->Item(shown->Key());
      collection->Remove(entity->Key());
      changed = true;
      EntityRemoved.Raise(entity);
    }
  });
}

}  // namespace kiv
