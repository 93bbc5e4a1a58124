#pragma once

#include <QAbstractItemModel>
#include <QItemSelection>
#include <cstdint>
#include <unordered_set>
#include <vector>

#include "store/network/network_entities.h"

namespace kiv::client {

/// The network as a tree of systems, ECPs and cells: nothing is kept for an entity but its place in three
/// lists.
class EntityTreeModel : public QAbstractItemModel {
 public:
  enum Column { kElement, kName, kTechnology, kColumnCount };
  using Instances = std::unordered_set<std::int32_t>;

  using QAbstractItemModel::QAbstractItemModel;

  void SetEntities(store::NetworkEntities entities);
  const store::NetworkEntities& Entities() const { return entities_; }
  /// Shows only what is found, below the entities that it belongs to.
  void SetSearch(const store::EntitySearch& search);
  bool Searching() const { return !search_.LooksForAll(); }

  store::NetworkEntities::Number EntityAt(const QModelIndex& index) const;
  /// How many entities of a kind are shown.
  std::size_t ShownCount(store::EntityKind kind) const;
  /// The shown ones among some entities, whole rows.
  QItemSelection RowsOf(const Instances& instances) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  void sort(int column, Qt::SortOrder order) override;

 private:
  using Number = store::NetworkEntities::Number;

  /// A system with its ECPs, or an ECP with its cells.
  struct Branch {
    Number entity;
    std::uint32_t first;  ///< child, in the list of the next level
    std::uint32_t count;
    std::uint32_t parent;  ///< in the list of the level above
  };

  static store::EntityKind KindOf(const QModelIndex& index);
  /// Place of the parent in its list.
  static std::size_t ParentOf(const QModelIndex& index);
  const Branch& BranchAt(const QModelIndex& index) const;

  void Rebuild();
  void SortAll();
  bool Before(Number left, Number right) const;

  store::NetworkEntities entities_;
  store::EntitySearch search_{std::string()};
  int sortColumn_ = kElement;
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
  std::vector<Branch> systems_;
  std::vector<Branch> ecps_;
  std::vector<Number> cells_;
};

}  // namespace kiv::client
