#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/variant.h"
#include "core/entities.h"
#include "ui/list_view.h"

namespace kiv {

/// A column of a list of entities: its look, and the value of an entity that it shows.
struct EntityColumn {
  ui::ListColumn look;
  std::function<Variant(const CEntity&)> value;
};

/// Columns of the numbers on the way to an entity.
EntityColumn SystemColumn(std::string caption);
EntityColumn EcpColumn(std::string caption);
/// For lists of cells only.
EntityColumn CellColumn(std::string caption);

/// A list that shows a collection of entities.
class EntityListView : public ui::ListView {
 public:
  EntityListView(ui::Container* parent, std::string name);

  /// The entities by key. Setting it shows nothing yet.
  const std::shared_ptr<EntityCollection>& TheCollection() const { return collection_; }
  void SetTheCollection(std::shared_ptr<EntityCollection> collection) { collection_ = std::move(collection); }

  /// Replaces the columns.
  void AddColumns(std::vector<EntityColumn> columns);
  /// Shows the collection as it is now.
  void Display();
  /// Shows nothing; the collection stays.
  void ClearDisplay();

  /// Raised once after the user changed the collection or something in it.
  Signal<> CollectionChanged;

 protected:
  /// The entities that are shown, by their rows.
  const std::vector<std::shared_ptr<CEntity>>& Shown() const;
  /// Shows the same rows after something in them changed; nothing is selected afterwards.
  void Redraw();

 private:
  class Rows;

  std::shared_ptr<EntityCollection> collection_;
  std::shared_ptr<const std::vector<EntityColumn>> columns_;
  std::shared_ptr<Rows> rows_;
};

}  // namespace kiv
