#include "client/window/entity_tree_model.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kiv::client {

namespace {

constexpr unsigned kKindBits = 2;

quintptr InternalId(store::EntityKind kind, std::size_t parent) {
  return parent << kKindBits | static_cast<quintptr>(kind);
}

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

void EntityTreeModel::SetEntities(store::NetworkEntities entities) {
  beginResetModel();
  entities_ = std::move(entities);
  Rebuild();
  endResetModel();
}

void EntityTreeModel::SetSearch(const store::EntitySearch& search) {
  beginResetModel();
  search_ = search;
  Rebuild();
  endResetModel();
}

void EntityTreeModel::sort(int column, Qt::SortOrder order) {
  if (column == sortColumn_ && order == sortOrder_) return;
  beginResetModel();
  sortColumn_ = column;
  sortOrder_ = order;
  Rebuild();
  endResetModel();
}

void EntityTreeModel::Rebuild() {
  systems_.clear();
  ecps_.clear();
  cells_.clear();
  const auto place = [this](Number entity) {
    switch (entities_.Kind(entity)) {
      case store::EntityKind::System:
        systems_.push_back({entity, static_cast<std::uint32_t>(ecps_.size()), 0, 0});
        break;
      case store::EntityKind::Ecp:
        ++systems_.back().count;
        ecps_.push_back({entity, static_cast<std::uint32_t>(cells_.size()), 0, 0});
        break;
      case store::EntityKind::Cell:
        ++ecps_.back().count;
        cells_.push_back(entity);
        break;
    }
  };
  if (search_.LooksForAll()) {
    cells_.reserve(entities_.Count());
    for (Number entity = 0; entity < entities_.Count(); ++entity) place(entity);
  } else {
    for (const Number entity : search_.Find(entities_)) place(entity);
  }
  SortAll();
}

void EntityTreeModel::SortAll() {
  const bool byNumber = sortColumn_ == kElement && sortOrder_ == Qt::AscendingOrder;
  if (!byNumber) {
    const auto sort = [this](auto begin, std::size_t first, std::size_t count, auto entityOf) {
      const auto from = begin + static_cast<std::ptrdiff_t>(first);
      std::stable_sort(
          from, from + static_cast<std::ptrdiff_t>(count),
          [&](const auto& left, const auto& right) { return Before(entityOf(left), entityOf(right)); });
    };
    const auto ofBranch = [](const Branch& branch) { return branch.entity; };
    sort(systems_.begin(), 0, systems_.size(), ofBranch);
    for (const Branch& system : systems_) sort(ecps_.begin(), system.first, system.count, ofBranch);
    for (const Branch& ecp : ecps_) {
      sort(cells_.begin(), ecp.first, ecp.count, [](Number cell) { return cell; });
    }
  }
  for (std::size_t system = 0; system < systems_.size(); ++system) {
    for (std::uint32_t i = 0; i < systems_[system].count; ++i) {
      ecps_[systems_[system].first + i].parent = static_cast<std::uint32_t>(system);
    }
  }
}

bool EntityTreeModel::Before(Number left, Number right) const {
  if (sortOrder_ == Qt::DescendingOrder) std::swap(left, right);
  switch (sortColumn_) {
    case kName: return entities_.SearchText(left) < entities_.SearchText(right);
    case kTechnology: return entities_.Technology(left) < entities_.Technology(right);
    default: return left < right;  // they stand in the order of their numbers
  }
}

store::EntityKind EntityTreeModel::KindOf(const QModelIndex& index) {
  return static_cast<store::EntityKind>(index.internalId() & ((1U << kKindBits) - 1));
}

std::size_t EntityTreeModel::ParentOf(const QModelIndex& index) {
  return index.internalId() >> kKindBits;
}

const EntityTreeModel::Branch& EntityTreeModel::BranchAt(const QModelIndex& index) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (KindOf(index) == store::EntityKind::System) return systems_[row];
  return ecps_[systems_[ParentOf(index)].first + row];
}

store::NetworkEntities::Number EntityTreeModel::EntityAt(const QModelIndex& index) const {
  if (KindOf(index) != store::EntityKind::Cell) return BranchAt(index).entity;
  return cells_[ecps_[ParentOf(index)].first + static_cast<std::size_t>(index.row())];
}

std::size_t EntityTreeModel::ShownCount(store::EntityKind kind) const {
  switch (kind) {
    case store::EntityKind::System: return systems_.size();
    case store::EntityKind::Ecp: return ecps_.size();
    case store::EntityKind::Cell: break;
  }
  return cells_.size();
}

QItemSelection EntityTreeModel::RowsOf(const Instances& instances) const {
  QItemSelection rows;
  if (instances.empty()) return rows;
  // Neighbours make one range: a selection of thousands of ranges would be slow.
  const auto select = [&](store::EntityKind kind, std::size_t parent, std::size_t count, auto entityOf) {
    const auto chosen = [&](std::size_t row) {
      return instances.contains(entities_.Instance(entityOf(row)));
    };
    const quintptr id = InternalId(kind, parent);
    for (std::size_t row = 0; row < count; ++row) {
      if (!chosen(row)) continue;
      const std::size_t from = row;
      while (row + 1 < count && chosen(row + 1)) ++row;
      rows.append(QItemSelectionRange(createIndex(static_cast<int>(from), 0, id),
                                      createIndex(static_cast<int>(row), kColumnCount - 1, id)));
    }
  };
  select(store::EntityKind::System, 0, systems_.size(),
         [this](std::size_t row) { return systems_[row].entity; });
  for (std::size_t i = 0; i < systems_.size(); ++i) {
    select(store::EntityKind::Ecp, i, systems_[i].count,
           [&](std::size_t row) { return ecps_[systems_[i].first + row].entity; });
  }
  for (std::size_t i = 0; i < ecps_.size(); ++i) {
    select(store::EntityKind::Cell, i, ecps_[i].count,
           [&](std::size_t row) { return cells_[ecps_[i].first + row]; });
  }
  return rows;
}

QModelIndex EntityTreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (row < 0 || column < 0 || column >= kColumnCount || row >= rowCount(parent)) return {};
  if (!parent.isValid()) return createIndex(row, column, InternalId(store::EntityKind::System, 0));
  const auto parentRow = static_cast<std::size_t>(parent.row());
  if (KindOf(parent) == store::EntityKind::System) {
    return createIndex(row, column, InternalId(store::EntityKind::Ecp, parentRow));
  }
  return createIndex(row, column,
                     InternalId(store::EntityKind::Cell, systems_[ParentOf(parent)].first + parentRow));
}

QModelIndex EntityTreeModel::parent(const QModelIndex& child) const {
  if (!child.isValid() || KindOf(child) == store::EntityKind::System) return {};
  const std::size_t place = ParentOf(child);
  if (KindOf(child) == store::EntityKind::Ecp) {
    return createIndex(static_cast<int>(place), 0, InternalId(store::EntityKind::System, 0));
  }
  const std::size_t system = ecps_[place].parent;
  return createIndex(static_cast<int>(place - systems_[system].first), 0,
                     InternalId(store::EntityKind::Ecp, system));
}

int EntityTreeModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(systems_.size());
  if (parent.column() != 0 || KindOf(parent) == store::EntityKind::Cell) return 0;
  return static_cast<int>(BranchAt(parent).count);
}

int EntityTreeModel::columnCount(const QModelIndex&) const {
  return kColumnCount;
}

QVariant EntityTreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Number entity = EntityAt(index);
  if (role == Qt::ToolTipRole) {
    return QStringLiteral("%1, %2, instance %3")
        .arg(QString::fromStdString(entities_.Path(entity).Text()), ToQt(entities_.Name(entity)))
        .arg(entities_.Instance(entity));
  }
  if (role != Qt::DisplayRole) return {};
  switch (index.column()) {
    case kElement:
      return QString(ToQt(store::KindText(KindOf(index))) + QLatin1Char(' ') +
                     QString::number(entities_.OwnNumber(entity)));
    case kName: return ToQt(entities_.Name(entity));
    default: return ToQt(entities_.Technology(entity));
  }
}

QVariant EntityTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static const std::array<QString, kColumnCount> captions = {
      QStringLiteral("Element"), QStringLiteral("Name"), QStringLiteral("Technology")};
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  if (section < 0 || section >= kColumnCount) return {};
  return captions[static_cast<std::size_t>(section)];
}

Qt::ItemFlags EntityTreeModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
  if (KindOf(index) == store::EntityKind::Cell) flags |= Qt::ItemNeverHasChildren;
  return flags;
}

}  // namespace kiv::client
