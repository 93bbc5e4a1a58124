#include "client/window/plain_table.h"

#include <QHeaderView>
#include <QTableView>

namespace kiv::client {

void MakePlain(QTableView& table) {
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setTabKeyNavigation(false);
  table.setShowGrid(false);
  table.setAlternatingRowColors(true);
  table.verticalHeader()->hide();
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() * 3 / 2);
  table.horizontalHeader()->setHighlightSections(false);
}

}  // namespace kiv::client
