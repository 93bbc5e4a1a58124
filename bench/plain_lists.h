#pragma once

#include <QStringList>
#include <QTableWidget>
#include <QTreeWidget>
#include <memory>
#include <vector>

#include "core/entities.h"
#include "database/connection.h"

/// The toolkit's own widgets that hold their items, filled in the fastest way that they have.
namespace kiv::bench {

/// The stored network as a tree: systems, ECPs and cells.
std::unique_ptr<QTreeWidget> MakePlainNetwork(database::Connection& connection, const QStringList& captions);
/// Shows only the cells whose name has a text in it, opened; returns how many there are.
int NarrowPlainNetwork(QTreeWidget& tree, const QString& text);

/// Cells as rows with system, ECP, cell and technology.
std::unique_ptr<QTreeWidget> MakePlainTree(const EntityCollection& cells, const QStringList& captions);
std::unique_ptr<QTableWidget> MakePlainTable(const EntityCollection& cells, const QStringList& captions);

}  // namespace kiv::bench
