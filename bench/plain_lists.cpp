#include "plain_lists.h"

#include <QHeaderView>

#include "core/conversions.h"

namespace kiv::bench {

namespace {

void Prepare(QTreeWidget& tree, const QStringList& captions) {
  tree.setColumnCount(static_cast<int>(captions.size()));
  tree.setHeaderLabels(captions);
  tree.setUniformRowHeights(true);
}

/// Values of a cell in the order of the columns; numbers stay numbers, so that they are sorted by value.
std::vector<QVariant> ValuesOf(const CCell& cell) {
  return {cell.SystemID(), cell.EcpID(), cell.CellID(), QString::fromStdString(cell.TechType())};
}

}  // namespace

std::unique_ptr<QTreeWidget> MakePlainNetwork(database::Connection& connection, const QStringList& captions) {
  constexpr int kTimeoutSeconds = 60;
  auto tree = std::make_unique<QTreeWidget>();
  Prepare(*tree, captions);
  const auto rows = connection.OpenQuery(
      "SELECT system_id, ecp_id, cell_id, name, technology FROM kiv_network ORDER BY system_id, ecp_id, "
      "cell_id",
      kTimeoutSeconds);
  QList<QTreeWidgetItem*> systems;
  QTreeWidgetItem* system = nullptr;
  QTreeWidgetItem* ecp = nullptr;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    const std::int32_t ecpNumber = ToInt32(rows->FieldAt(1));
    const std::int32_t cellNumber = ToInt32(rows->FieldAt(2));
    const QString name = QString::fromStdString(ToText(rows->FieldAt(3)));
    const QString technology = QString::fromStdString(ToText(rows->FieldAt(4)));
    const auto texts = [&](const char* kind, std::int32_t number) {
      return QStringList{QLatin1String(kind) + QString::number(number), name, technology};
    };
    if (cellNumber != 0) {
      new QTreeWidgetItem(ecp, texts("Cell ", cellNumber));
    } else if (ecpNumber != 0) {
      ecp = new QTreeWidgetItem(system, texts("ECP ", ecpNumber));
    } else {
      system = new QTreeWidgetItem(texts("System ", ToInt32(rows->FieldAt(0))));
      systems.append(system);
    }
  }
  tree->addTopLevelItems(systems);
  return tree;
}

int NarrowPlainNetwork(QTreeWidget& tree, const QString& text) {
  constexpr int kName = 1;
  int found = 0;
  const auto narrow = [&](QTreeWidgetItem& ecp) {
    int ofEcp = 0;
    for (int i = 0; i < ecp.childCount(); ++i) {
      QTreeWidgetItem& cell = *ecp.child(i);
      const bool fits = cell.text(kName).contains(text, Qt::CaseInsensitive);
      cell.setHidden(!fits);
      ofEcp += fits ? 1 : 0;
    }
    ecp.setHidden(ofEcp == 0);
    ecp.setExpanded(ofEcp > 0);
    found += ofEcp;
    return ofEcp > 0;
  };
  tree.setUpdatesEnabled(false);
  for (int i = 0; i < tree.topLevelItemCount(); ++i) {
    QTreeWidgetItem& system = *tree.topLevelItem(i);
    bool any = false;
    for (int j = 0; j < system.childCount(); ++j) any = narrow(*system.child(j)) || any;
    system.setHidden(!any);
    system.setExpanded(any);
  }
  tree.setUpdatesEnabled(true);
  return found;
}

std::unique_ptr<QTreeWidget> MakePlainTree(const EntityCollection& cells, const QStringList& captions) {
  auto tree = std::make_unique<QTreeWidget>();
  Prepare(*tree, captions);
  tree->setRootIsDecorated(false);
  QList<QTreeWidgetItem*> items;
  items.reserve(cells.Count());
  for (const auto& entity : cells) {
    auto* item = new QTreeWidgetItem;
    int column = 0;
    for (const QVariant& value : ValuesOf(AsCell(entity))) item->setData(column++, Qt::DisplayRole, value);
    items.append(item);
  }
  tree->addTopLevelItems(items);
  return tree;
}

std::unique_ptr<QTableWidget> MakePlainTable(const EntityCollection& cells, const QStringList& captions) {
  auto table = std::make_unique<QTableWidget>(cells.Count(), static_cast<int>(captions.size()));
  table->setHorizontalHeaderLabels(captions);
  table->verticalHeader()->hide();
  int row = 0;
  for (const auto& entity : cells) {
    int column = 0;
    for (const QVariant& value : ValuesOf(AsCell(entity))) {
      auto* item = new QTableWidgetItem;
      item->setData(Qt::DisplayRole, value);
      table->setItem(row, column++, item);
    }
    ++row;
  }
  return table;
}

}  // namespace kiv::bench
