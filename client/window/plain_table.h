#pragma once

class QTableView;

namespace kiv::client {

/// Makes a table of the look that all of them have: whole rows, no lines between them, as high as they need
/// to be, and the tab key leads out of it.
void MakePlain(QTableView& table);

}  // namespace kiv::client
